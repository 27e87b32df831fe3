#include "analytics/AnalyticsDataManager.h"
#include "analytics/monitoring/MonitoringState.h"
#include "platform/Text.h"
#include "support/ViewTest.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto white = u"#ffffffff"_s;
const auto surface = u"#ff121214"_s;
const auto success = u"#ff22c55e"_s;
const auto error = u"#ffef4444"_s;
const auto textSecondary = u"#ffa1a1aa"_s;
const auto textTertiary = u"#ff71717a"_s;
const auto blue = u"#ff0a84ff"_s;
const auto green = u"#ff32d74b"_s;
const auto purple = u"#ffbf5af2"_s;

// The smallest rectangle that holds all that differs.
QRect differenceOf(const QImage &a, const QImage &b)
{
    QRect difference;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                difference |= QRect(x, y, 1, 1);
            }
        }
    }
    return difference;
}

void blacken(QImage &image, const QQuickItem *item)
{
    const QRect place = placeOf(item).toAlignedRect();
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            image.setPixel(x, y, 0);
        }
    }
}

} // namespace

class tst_MonitoringView : public ViewTest {
    Q_OBJECT

private slots:
    // Breadcrumb bar

    void composesItsBreadcrumbBar()
    {
        opens();
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff09090b"_s);
        const QQuickItem *bar = m_window->all(u"BreadcrumbBar"_s).value(0);
        QCOMPARE(m_window->texts(bar), QStringList({u"Dashboard"_s, u"/"_s, u"Monitoring"_s, u"System Healthy"_s}));
        for (const QString &text : {u"Dashboard"_s, u"/"_s, u"Monitoring"_s}) {
            QCOMPARE(fontOf(m_window->text(text)), u"Inter 14 400"_s);
            QCOMPARE(colorOf(m_window->text(text)), text == u"Monitoring" ? textSecondary : textTertiary);
        }
        const QQuickItem *healthy = m_window->text(u"System Healthy"_s);
        QCOMPARE(fontOf(healthy), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(healthy), success);
        const QQuickItem *dot = m_window->all(u"QQuickRectangle"_s, healthy->parentItem()).value(0);
        QCOMPARE(placeOf(dot).size(), QSizeF(6, 6));
        QCOMPARE(colorOf(dot), success);
        const QQuickItem *pill = healthy->parentItem()->parentItem();
        QCOMPARE(colorOf(pill), u"#1a22c55e"_s);
        QCOMPARE(pill->property("radius").toDouble(), 6.0);
        QCOMPARE(placeOf(pill).right(), 956.0);
        QCOMPARE(placeOf(dot).left() - placeOf(pill).left(), 12.0);
        QCOMPARE(placeOf(pill).right() - placeOf(healthy).right(), 12.0);
        QCOMPARE(placeOf(healthy).top() - placeOf(pill).top(), 6.0);
        QCOMPARE(placeOf(pill).bottom() - placeOf(healthy).bottom(), 6.0);
    }

    void staysHealthyWhateverTheLossesDo()
    {
        opens();
        ticks(1000);
        QVERIFY(m_window->shows(u"System Healthy"_s));
        QVERIFY(m_window->shows(u"Best: 0.310"_s));
        QVERIFY(m_window->shows(u"Epoch 2/5"_s));
        QVERIFY(m_window->control(QAccessible::StaticText, u"4.2k"_s));
        QCOMPARE(AnalyticsDataManager::shared().totalEpochs(), 10);
    }

    // The run

    void composesItsRunCard()
    {
        opens();
        const QQuickItem *card = runCard();
        looksLikeACard(card);
        QCOMPARE(placeOf(card).left(), 24.0);
        QCOMPARE(placeOf(card).right(), 956.0);
        const QQuickItem *title = m_window->text(u"Medical LLaMA Fine-Tuning"_s, card);
        QCOMPARE(fontOf(title), u"Space Grotesk 18 500"_s);
        QCOMPARE(colorOf(title), white);
        const QQuickItem *id = m_window->text(u"Run ID: #ft-29384 • Started 2h 15m ago"_s, card);
        QCOMPARE(fontOf(id), u"Inter 12 400"_s);
        QCOMPARE(colorOf(id), textTertiary);
        QCOMPARE(placeOf(title).left() - placeOf(card).left(), 24.0);
        const QQuickItem *logs = m_window->button(u"View Logs"_s, card);
        const QQuickItem *stop = m_window->button(u"Stop Run"_s, card);
        QVERIFY(m_window->all(u"SecondaryButton"_s, card).contains(logs));
        QVERIFY(m_window->all(u"PrimaryButton"_s, card).contains(stop));
        QCOMPARE(placeOf(card).right() - placeOf(stop).right(), 24.0);
        QCOMPARE(gapAcross(logs, stop), 12.0);
        const QQuickItem *details = m_window->all(u"InfoGridItem"_s, card).value(0);
        QCOMPARE(gapBetween(title->parentItem()->parentItem(), details), 20.0);
        QCOMPARE(placeOf(card).bottom() - placeOf(details).bottom(), 24.0);
    }

    void showsTheRunsDetailsInFourColumns()
    {
        opens();
        const auto details = m_window->all(u"InfoGridItem"_s);
        QCOMPARE(details.size(), 4);
        const QList<QStringList> told{{u"Base Model"_s, u"Llama-3-8b"_s, u"cube.fill"_s, textSecondary},
            {u"Dataset"_s, u"PubMed-QA"_s, u"cylinder.split.1x2.fill"_s, textSecondary},
            {u"Method"_s, u"QLoRA r=64, alpha=16"_s, u"cpu.fill"_s, textSecondary},
            {u"Status"_s, u"Training"_s, u"circle.fill"_s, white}};
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(m_window->texts(details[i]), told[i].mid(0, 2));
            const QQuickItem *symbol = m_window->symbol(told[i][2], details[i]);
            QVERIFY(symbol);
            QCOMPARE(colorOf(symbol), told[i][3]);
            QCOMPARE(placeOf(details[i]).top(), placeOf(details[0]).top());
            QCOMPARE(placeOf(details[i]).width(), placeOf(details[0]).width());
            QVERIFY(!m_window->text(told[i][1], details[i])->property("truncated").toBool());
        }
    }

    void doesNothingForItsButtons()
    {
        opens();
        const QStringList before = m_window->texts();
        for (const QString &name : {u"View Logs"_s, u"Stop Run"_s}) {
            QQuickItem *button = m_window->button(name);
            QSignalSpy clicked(button, SIGNAL(clicked()));
            m_window->click(button);
            QCOMPARE(clicked.size(), 1);
            settle();
            QCOMPARE(m_window->texts(), before);
        }
        QVERIFY(m_world->service.requests().isEmpty());
    }

    // The figures

    void showsThreeFigures_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("change");
        QTest::addColumn<QString>("changeLabel");
        QTest::newRow("training loss") << 0 << u"TRAINING LOSS"_s << u"0.421"_s << u"-12%"_s << u"Epoch 2/5"_s;
        QTest::newRow("validation loss") << 1 << u"VALIDATION LOSS"_s << u"0.455"_s << u"-5%"_s << u"Best: 0.310"_s;
        QTest::newRow("throughput") << 2 << u"THROUGHPUT"_s << u"4.2k"_s << u"+8%"_s << u"tokens/sec"_s;
    }
    void showsThreeFigures()
    {
        QFETCH(int, place);
        QFETCH(QString, title);
        QFETCH(QString, value);
        QFETCH(QString, change);
        QFETCH(QString, changeLabel);
        opens();
        QCOMPARE(figureCards().size(), 3);
        const QQuickItem *card = figureCards().at(place);
        looksLikeACard(card);
        QCOMPARE(placeOf(card).height(), 120.0);
        QCOMPARE(gapBetween(runCard(), card), 24.0);
        if (place > 0) {
            QCOMPARE(gapAcross(figureCards().at(place - 1), card), 16.0);
        }
        const QQuickItem *head = m_window->text(title, card);
        QCOMPARE(fontOf(head), u"Inter 11 700"_s);
        QCOMPARE(colorOf(head), textTertiary);
        QCOMPARE(placeOf(head).left() - placeOf(card).left(), 20.0);
        const QQuickItem *figure = m_window->control(QAccessible::StaticText, value, card);
        QVERIFY(figure);
        QCOMPARE(fontOf(figure), u"Space Grotesk 24 700"_s);
        QCOMPARE(colorOf(figure), white);
        QCOMPARE(m_window->texts(figure).join(QString()), value);
        const QQuickItem *badge = m_window->all(u"Badge"_s, card).value(0);
        QCOMPARE(m_window->texts(badge), QStringList{change});
        QCOMPARE(colorOf(m_window->text(change, card)), success);
        QCOMPARE(colorOf(badge), u"#2622c55e"_s);
        QCOMPARE(badge->property("radius").toDouble(), 4.0);
        QCOMPARE(badge->property("horizontalPadding").toDouble(), 6.0);
        QCOMPARE(badge->property("verticalPadding").toDouble(), 2.0);
        const QQuickItem *label = m_window->text(changeLabel, card);
        QCOMPARE(fontOf(label), u"Inter 12 400"_s);
        QCOMPARE(colorOf(label), textTertiary);
        QCOMPARE(gapAcross(badge, label), 6.0);
    }

    void colorsAChangeAsItIsToldAndNotByItsSign_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<bool>("isPositive");
        QTest::newRow("less and good") << u"-12%"_s << true;
        QTest::newRow("more and good") << u"+8%"_s << true;
        QTest::newRow("less and bad") << u"-12%"_s << false;
        QTest::newRow("more and bad") << u"+8%"_s << false;
    }
    void colorsAChangeAsItIsToldAndNotByItsSign()
    {
        QFETCH(QString, change);
        QFETCH(bool, isPositive);
        opens();
        const auto card = made(u"MetricCardNew"_s,
            {{u"width"_s, 300}, {u"height"_s, 120}, {u"title"_s, u"A"_s}, {u"value"_s, u"1"_s}, {u"change"_s, change},
                {u"changeLabel"_s, u"B"_s}, {u"isPositiveChange"_s, isPositive}});
        const QString color = isPositive ? success : error;
        QCOMPARE(colorOf(m_window->text(change, card.get())), color);
        QCOMPARE(colorOf(m_window->all(u"Badge"_s, card.get()).value(0)), u"#26"_s + color.mid(3));
    }

    void followsTheManagersLosses()
    {
        opens();
        for (int tick = 0; tick < 20; ++tick) {
            ticks(1);
            const AnalyticsDataManager &manager = AnalyticsDataManager::shared();
            QVERIFY(m_window->control(
                QAccessible::StaticText, text::fixed(manager.trainingLoss(), 3), figureCards().at(0)));
            QVERIFY(m_window->control(
                QAccessible::StaticText, text::fixed(manager.validationLoss(), 3), figureCards().at(1)));
            QVERIFY(m_window->control(QAccessible::StaticText, u"4.2k"_s, figureCards().at(2)));
        }
    }

    void keepsItsFiguresAsWideWhateverTheirDigits()
    {
        opens();
        const QQuickItem *figure = m_window->all(u"TabularLabel"_s).value(0);
        const auto cells = [&] {
            QList<QRectF> places;
            for (const QQuickItem *character : m_window->all(u"Label"_s, figure)) {
                places.append(placeOf(character));
            }
            return places;
        };
        const QList<QRectF> before = cells();
        QCOMPARE(before.size(), 5);
        QSet<QString> seen;
        for (int tick = 0; tick < 50; ++tick) {
            ticks(1);
            seen.insert(figure->property("text").toString());
            QCOMPARE(cells(), before);
        }
        QVERIFY(seen.size() > 10);
    }

    // The chart

    void composesItsChart()
    {
        opens();
        const QQuickItem *card = m_window->all(u"LossCurveCard"_s).value(0);
        looksLikeACard(card);
        QCOMPARE(placeOf(card).height(), 320.0);
        QCOMPARE(gapBetween(figureCards().at(0), card), 24.0);
        const QQuickItem *title = m_window->control(QAccessible::Heading, u"Loss Curve"_s, card);
        QCOMPARE(fontOf(title), u"Inter 14 500"_s);
        QCOMPARE(colorOf(title), white);
        const auto legend = m_window->all(u"LegendItem"_s, card);
        QCOMPARE(legend.size(), 2);
        QCOMPARE(m_window->texts(legend[0]), QStringList{u"Train"_s});
        QCOMPARE(m_window->texts(legend[1]), QStringList{u"Val"_s});
        for (int i = 0; i < 2; ++i) {
            const QQuickItem *dot = m_window->all(u"QQuickRectangle"_s, legend[i]).value(0);
            const QQuickItem *label = m_window->all(u"Label"_s, legend[i]).value(0);
            QCOMPARE(placeOf(dot).size(), QSizeF(8, 8));
            QCOMPARE(colorOf(dot), i == 0 ? white : blue);
            QCOMPARE(label->property("font").value<QFont>().pixelSize(), 12);
            QCOMPARE(colorOf(label), textSecondary);
            QCOMPARE(gapAcross(dot, label), 6.0);
        }
        QCOMPARE(gapAcross(legend[0], legend[1]), 12.0);
        QCOMPARE(placeOf(card).right() - placeOf(legend[1]).right(), 20.0);
        QCOMPARE(placeOf(card).right() - placeOf(chart()).right(), 20.0);
        QCOMPARE(placeOf(chart()).left() - placeOf(card).left(), 20.0);
        QCOMPARE(placeOf(card).bottom() - placeOf(chart()).bottom(), 20.0);
    }

    void drawsTwentyBarsEachATwentySecondOfTheWidth()
    {
        opens();
        QCOMPARE(heights().size(), 20);
        QCOMPARE(bars()->property("barWidth").toDouble(), placeOf(chart()).width() / 22);
        QCOMPARE(bars()->property("spacing").toDouble(), 4.0);
        QCOMPARE(bars()->property("radius").toDouble(), 2.0);
        QCOMPARE(colorOf(bars(), "topColor"), u"#1affffff"_s);
        QCOMPARE(colorOf(bars(), "bottomColor"), u"#0dffffff"_s);
        QCOMPARE(placeOf(bars()).height(), placeOf(chart()).height());
        QVERIFY(std::is_sorted(heights().cbegin(), heights().cend(), std::greater<>()));
        for (const double height : heights()) {
            QVERIFY(height >= 0.3 - 1e-9 && height <= 0.9 + 1e-9);
        }
    }

    void centersItsBars_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<double>("left");
        QTest::newRow("wider than its bars") << 880 << 2.0;
        QTest::newRow("as wide as its bars") << 836 << 0.0;
        QTest::newRow("narrower than its bars") << 594 << -11.0;
    }
    void centersItsBars()
    {
        QFETCH(int, width);
        QFETCH(double, left);
        opens();
        const auto chart = made(u"LossCurveChart"_s,
            {{u"width"_s, width}, {u"height"_s, 200}, {u"heights"_s, QVariant::fromValue(QList<double>(20, 0.5))}});
        const QQuickItem *bars = m_window->all(u"StripBars"_s, chart.get()).value(0);
        QCOMPARE(bars->x(), left);
        QCOMPARE(bars->x() + bars->width(), width - left);
    }

    void drawsItsBarsAnewAtEachTickAndOnlyThen()
    {
        opens();
        QList<double> before = heights();
        for (int tick = 0; tick < 5; ++tick) {
            m_world->clock.advance(1'999ms);
            settle();
            QCOMPARE(heights(), before);
            m_world->clock.advance(1ms);
            settle();
            QVERIFY(heights() != before);
            before = heights();
        }
    }

    void drawsNothingAnewAtATickButTheLossesAndTheBars()
    {
        opens();
        QImage before = m_view->grabWindow();
        ticks(1);
        QImage after = m_view->grabWindow();
        const auto figures = m_window->all(u"TabularLabel"_s);
        for (const QQuickItem *item : {figures.value(0), figures.value(1), bars()}) {
            QVERIFY(differenceOf(before, after).intersects(placeOf(item).toAlignedRect()));
            blacken(before, item);
            blacken(after, item);
        }
        QCOMPARE(differenceOf(before, after), QRect());
    }

    void drawsOneFrameATickAndNoneBetween()
    {
        opens();
        settle();
        // What the pointer and the window's own showing left to draw is drawn.
        QSignalSpy frames(m_view.get(), &QQuickWindow::frameSwapped);
        ticks(1);
        QVERIFY(eventually([&] { return frames.size() == 1; }));
        m_world->clock.advance(1'999ms);
        settle();
        QCOMPARE(frames.size(), 1);
        m_world->clock.advance(1ms);
        QVERIFY(eventually([&] { return frames.size() == 2; }));
        settle();
        QCOMPARE(frames.size(), 2);
    }

    // The machine

    void composesItsHardwareCard()
    {
        opens();
        const QQuickItem *card = m_window->all(u"HardwareStatsCard"_s).value(0);
        looksLikeACard(card);
        QCOMPARE(placeOf(card).width(), 280.0);
        QCOMPARE(placeOf(card).height(), 320.0);
        QCOMPARE(gapAcross(m_window->all(u"LossCurveCard"_s).value(0), card), 16.0);
        QCOMPARE(colorOf(m_window->symbol(u"server.rack"_s, card)), textTertiary);
        const QQuickItem *title = m_window->control(QAccessible::Heading, u"Hardware"_s, card);
        QCOMPARE(fontOf(title), u"Inter 14 500"_s);
        QCOMPARE(colorOf(title), white);
        const auto gauges = m_window->all(u"GaugeItem"_s, card);
        QCOMPARE(gauges.size(), 4);
        QCOMPARE(placeOf(gauges[0]).left() - placeOf(card).left(), 20.0);
        QCOMPARE(gapAcross(gauges[0], gauges[1]), 16.0);
        QCOMPARE(placeOf(card).right() - placeOf(gauges[1]).right(), 20.0);
        QCOMPARE(gapBetween(gauges[0], gauges[2]), 16.0);
        QCOMPARE(gapBetween(title, gauges[0]), 20.0);
        // In whole points.
        const double below = placeOf(card).bottom() - placeOf(gauges[2]).bottom();
        QVERIFY(below >= 20 && below < 22);
    }

    void showsFourGauges_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<QString>("label");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("color");
        QTest::addColumn<QString>("figure");
        QTest::addColumn<QString>("unit");
        QTest::newRow("GPU") << 0 << u"GPU UTIL"_s << 0.92 << white << u"92%"_s << QString();
        QTest::newRow("VRAM") << 1 << u"VRAM"_s << 0.18 << purple << u"18"_s << u"GB"_s;
        QTest::newRow("RAM") << 2 << u"RAM"_s << 0.45 << blue << u"45"_s << u"GB"_s;
        QTest::newRow("temperature") << 3 << u"TEMP"_s << 0.34 << green << u"34"_s << u"°C"_s;
    }
    void showsFourGauges()
    {
        QFETCH(int, place);
        QFETCH(QString, label);
        QFETCH(double, value);
        QFETCH(QString, color);
        QFETCH(QString, figure);
        QFETCH(QString, unit);
        opens();
        const QQuickItem *gauge = m_window->all(u"GaugeItem"_s).at(place);
        const QQuickItem *ring = m_window->all(u"RingGauge"_s, gauge).value(0);
        QCOMPARE(placeOf(ring).size(), QSizeF(60, 60));
        QCOMPARE(ring->property("fraction").toDouble(), value);
        QCOMPARE(colorOf(ring), color);
        QCOMPARE(colorOf(ring, "trackColor"), u"#1affffff"_s);
        QCOMPARE(ring->property("strokeWidth").toDouble(), 4.0);
        QCOMPARE(ring->property("startAngle").toDouble(), -90.0);
        QCOMPARE(ring->property("spanAngle").toDouble(), 360.0);
        QVERIFY(placeOf(gauge).contains(placeOf(ring).adjusted(-12, -12, 12, 12)));

        const QStringList told = unit.isEmpty() ? QStringList({figure, label}) : QStringList({figure, unit, label});
        QCOMPARE(m_window->texts(gauge), told);
        const QQuickItem *first = m_window->text(figure, gauge);
        QCOMPARE(fontOf(first), u"Inter 16 700"_s);
        QCOMPARE(colorOf(first), white);
        if (!unit.isEmpty()) {
            const QQuickItem *second = m_window->text(unit, gauge);
            QCOMPARE(fontOf(second), u"Geist Mono 9 400"_s);
            QCOMPARE(colorOf(second), textTertiary);
            QVERIFY(gapBetween(first, second) >= 0);
        }
        const QQuickItem *name = m_window->text(label, gauge);
        QCOMPARE(fontOf(name), u"Geist Mono 10 700"_s);
        QCOMPARE(colorOf(name), textSecondary);
        const QQuickItem *bolt = m_window->symbol(u"bolt.fill"_s, gauge);
        QCOMPARE(bolt != nullptr, label == u"GPU UTIL");
        if (bolt) {
            QCOMPARE(bolt->property("size").toDouble(), 8.0);
            QCOMPARE(gapAcross(bolt, name), 4.0);
        }
        const QQuickItem *ground = m_window->all(u"QQuickRectangle"_s, gauge).value(0);
        QCOMPARE(colorOf(ground), u"#4d000000"_s);
        QCOMPARE(ground->property("radius").toDouble(), 8.0);
    }

    // The window

    void needsNoScrollingInTheSmallestWindow()
    {
        opens();
        QVERIFY(area()->property("contentHeight").toDouble() <= area()->height());
    }

    void scrollsWhereTheWindowIsTooLow()
    {
        opens({980, 600});
        const QQuickItem *hardware = m_window->all(u"HardwareStatsCard"_s).value(0);
        QVERIFY(placeOf(hardware).bottom() > 600);
        const QRectF bar = placeOf(m_window->all(u"BreadcrumbBar"_s).value(0));
        area()->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_End);
        QCOMPARE(placeOf(hardware).bottom(), 600.0 - 24);
        QCOMPARE(placeOf(m_window->all(u"BreadcrumbBar"_s).value(0)), bar);
    }

    void spreadsInALargeWindow()
    {
        opens({1700, 1160});
        QCOMPARE(placeOf(runCard()).right(), 1676.0);
        QCOMPARE(placeOf(figureCards().at(2)).right(), 1676.0);
        QCOMPARE(placeOf(m_window->all(u"HardwareStatsCard"_s).value(0)).right(), 1676.0);
        QCOMPARE(placeOf(m_window->all(u"HardwareStatsCard"_s).value(0)).width(), 280.0);
        QCOMPARE(bars()->property("barWidth").toDouble(), placeOf(chart()).width() / 22);
    }

    void showsTheSameRunWhereverItIsOpened()
    {
        opens();
        ticks(3);
        const QString loss = m_window->all(u"TabularLabel"_s).value(0)->property("text").toString();
        QVERIFY(loss != u"0.421");
        close();
        opens();
        QCOMPARE(m_window->all(u"TabularLabel"_s).value(0)->property("text").toString(), loss);
        QCOMPARE(m_world->clock.scheduledCount(), 1);
    }

private:
    void opens(QSize size = {980, 760}) { open(u"Analytics/MonitoringView.qml"_s, size); }

    // One of the screen's parts on its own, in front of it.
    std::unique_ptr<QQuickItem> made(const QString &type, const QVariantMap &properties)
    {
        QQmlComponent component(m_view->engine(), QUrl(u"qrc:/qt/qml/Quillmere/Analytics/"_s + type + u".qml"_s));
        auto *item = qobject_cast<QQuickItem *>(component.createWithInitialProperties(properties));
        if (!item) {
            qFatal("%s", qPrintable(component.errorString()));
        }
        item->setParentItem(m_view->rootObject());
        return std::unique_ptr<QQuickItem>(item);
    }

    void ticks(int count)
    {
        m_world->clock.advance(count * 2s);
        settle();
    }

    static void looksLikeACard(const QQuickItem *card)
    {
        QCOMPARE(colorOf(card), surface);
        QCOMPARE(card->property("radius").toDouble(), 12.0);
        QCOMPARE(strokeOf(card), u"#ff27272a 1"_s);
    }

    QQuickItem *runCard() const { return m_window->all(u"RunInfoCard"_s).value(0); }
    QList<QQuickItem *> figureCards() const { return m_window->all(u"MetricCardNew"_s); }
    QQuickItem *chart() const { return m_window->all(u"LossCurveChart"_s).value(0); }
    QQuickItem *bars() const { return m_window->all(u"StripBars"_s).value(0); }
    QQuickItem *area() const { return m_window->all(u"ScrollArea"_s).value(0); }
    QList<double> heights() const { return bars()->property("heights").value<QList<double>>(); }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_MonitoringView)
#include "tst_MonitoringView.moc"
