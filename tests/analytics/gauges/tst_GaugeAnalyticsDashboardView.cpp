#include "analytics/gauges/GaugeAnalyticsDashboardState.h"
#include "analytics/gauges/RollingNumber.h"
#include "app/theme/Color.h"
#include "charts/ArcGauge.h"
#include "platform/ProcessMemory.h"
#include "support/ViewTest.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const QString gray = word(Color::gray());
const QString white = u"#ffffffff"_s;

} // namespace

class tst_GaugeAnalyticsDashboardView : public ViewTest {
    Q_OBJECT

private:
    void open(QSize size = {1000, 1300})
    {
        ViewTest::open(u"Analytics/GaugeAnalyticsDashboardView.qml"_s, size);
        m_view->setColor(Qt::black);
        QVERIFY(eventually([&] { return gauges().size() == 14 && arc(0)->drawings() > 0; }));
    }

    GaugeAnalyticsDashboardState &state() const
    {
        return *m_view->rootObject()->findChild<GaugeAnalyticsDashboardState *>();
    }
    QList<QQuickItem *> gauges() const { return m_window->all(u"GaugeMeterView"_s); }
    ArcGauge *arc(int i) const
    {
        return qobject_cast<ArcGauge *>(m_window->all(u"ArcGauge"_s, gauges().at(i)).value(0));
    }
    RollingNumber *number(int i) const
    {
        return qobject_cast<RollingNumber *>(m_window->all(u"RollingNumber"_s, gauges().at(i)).value(0));
    }
    QQuickItem *gauge(const QString &name) const
    {
        for (auto *gauge : gauges()) {
            if (gauge->property("metricName").toString() == name) {
                return gauge;
            }
        }
        return nullptr;
    }
    QQuickItem *panelOf(const QQuickItem *gauge) const
    {
        return m_window->all(u"GrowingPanel"_s, gauge).value(0)->childItems().value(0);
    }
    void nextFrame()
    {
        m_view->update();
        QVERIFY(eventually([&] { return !m_view->grabWindow().isNull(); }));
    }

private slots:
    void showsFourteenGaugesInFourSections()
    {
        open();
        QStringList sections;
        for (auto *section : m_window->all(u"GaugeSection"_s)) {
            const auto *symbol = m_window->all(u"SymbolIcon"_s, section).value(0);
            sections.append(m_window->texts(section).value(0) + u' ' + symbol->property("name").toString());
        }
        QCOMPARE(sections.join(u'|'),
            u"GPU HEALTH cpu|SYSTEM LOAD server.rack|TRAINING DYNAMICS waveform.path.ecg|MODEL HEALTH brain.head.profile"_s);

        QStringList names;
        QStringList symbols;
        for (auto *gauge : gauges()) {
            symbols.append(m_window->all(u"SymbolIcon"_s, gauge).value(0)->property("name").toString());
            names.append(QAccessible::queryAccessibleInterface(gauge)->text(QAccessible::Name));
        }
        QCOMPARE(names.join(u'|'),
            u"GPU Temp: 65 °C|VRAM Usage: 8 GB|GPU Load: 45 %|Fan Speed: 1200 RPM|CPU Util: 32 %|Memory: 12 GB|"
            "Disk I/O: 450 MB/s|Network: 25 MB/s|Throughput: 3200 tok/s|Speed: 4 it/s|Grad Norm: 1|Confidence: 88 %|"
            "Loss: 0|Data Quality: 92 Q"_s);
        QCOMPARE(symbols.join(u'|'),
            u"flame.fill|memorychip|bolt.fill|fanblades.fill|cpu.fill|memorychip.fill|internaldrive.fill|network|"
            "text.append|hare.fill|function|checkmark.shield.fill|chart.line.downtrend.xyaxis|doc.text.magnifyingglass"_s);
    }

    void givesEachGaugeItsOwnThresholds()
    {
        open();
        QStringList thresholds;
        for (auto *gauge : gauges()) {
            const auto of = gauge->findChild<GaugeMeterState *>()->thresholds();
            thresholds.append(u"%1: %2 %3 %4"_s.arg(gauge->property("metricName").toString())
                                  .arg(of.normal)
                                  .arg(of.warning)
                                  .arg(of.critical));
        }
        QCOMPARE(thresholds.join(u'|'),
            u"GPU Temp: 60 80 90|VRAM Usage: 12 20 22|GPU Load: 50 80 95|Fan Speed: 2000 3000 4000|CPU Util: 40 70 90|"
            "Memory: 16 24 30|Disk I/O: 500 1000 2000|Network: 50 100 200|Throughput: 2000 1000 500|Speed: 2 1 0.5|"
            "Grad Norm: 1 2 5|Confidence: 80 60 40|Loss: 0.5 1 2|Data Quality: 90 80 70"_s);
    }

    void paintsGoodValuesRedWhereTheThresholdsFall()
    {
        open();
        QStringList red;
        for (int i = 0; i < 14; ++i) {
            if (arc(i)->color() == Color::red()) {
                red.append(gauges().at(i)->property("metricName").toString());
            } else {
                QCOMPARE(arc(i)->color(), Color::blue());
            }
        }
        QCOMPARE(red, (QStringList{u"Throughput"_s, u"Speed"_s, u"Confidence"_s, u"Data Quality"_s}));
    }

    void givesEachGaugeThresholdsOfItsOwn()
    {
        open();
        const QList<GaugeThresholds> thresholds{{60, 80, 90}, {12, 20, 22}, {50, 80, 95}, {2000, 3000, 4000},
            {40, 70, 90}, {16, 24, 30}, {500, 1000, 2000}, {50, 100, 200}, {2000, 1000, 500}, {2, 1, 0.5}, {1, 2, 5},
            {80, 60, 40}, {0.5, 1, 2}, {90, 80, 70}};
        for (int i = 0; i < 14; ++i) {
            QCOMPARE(gauges().at(i)->property("thresholds").value<GaugeThresholds>(), thresholds.at(i));
        }
    }

    void fillsTheArcsByValueAndLargestValue()
    {
        open();
        const QList<double> fractions{65 / 100.0, 8.2 / 24, 45 / 100.0, 1200 / 5000.0, 32 / 100.0, 12.4 / 32,
            450 / 3000.0, 25 / 500.0, 3200 / 5000.0, 4.5 / 10, 1.2 / 10, 0.88, 0.45 / 3, 92 / 100.0};
        for (int i = 0; i < 14; ++i) {
            QCOMPARE(arc(i)->fraction(), fractions.at(i));
        }
    }

    void followsTheWalkAndRedrawsOnlyWhatMoved()
    {
        open();
        nextFrame();
        QList<int> drawings;
        QList<int> paintings;
        for (int i = 0; i < 14; ++i) {
            drawings.append(arc(i)->drawings());
            paintings.append(number(i)->paintings());
        }
        m_world->clock.advance(500ms);
        nextFrame();
        QStringList moved;
        for (int i = 0; i < 14; ++i) {
            if (arc(i)->drawings() != drawings.at(i)) {
                moved.append(gauges().at(i)->property("metricName").toString());
            }
        }
        QCOMPARE(moved,
            (QStringList{u"GPU Temp"_s, u"VRAM Usage"_s, u"GPU Load"_s, u"Fan Speed"_s, u"CPU Util"_s, u"Throughput"_s,
                u"Confidence"_s, u"Loss"_s}));
        QCOMPARE(arc(0)->fraction(), state().gpuTemp() / 100);
        QCOMPARE(number(5)->paintings(), paintings.at(5));
        // Its figure is the same, though its arc moved.
        QCOMPARE(number(12)->text(), u"0"_s);
        QCOMPARE(number(12)->paintings(), paintings.at(12));
    }

    void growsUnderThePointer()
    {
        open();
        auto *gauge = this->gauge(u"Memory"_s);
        auto *name = m_window->text(u"Memory"_s, gauge);
        QCOMPARE(colorOf(name), gray);
        QCOMPARE(gauge->scale(), 1.0);
        m_window->hover(gauge);
        QVERIFY(eventually([&] { return gauge->scale() == 1.02; }));
        QCOMPARE(colorOf(name), white);
        QCOMPARE(colorOf(m_window->symbol(u"memorychip.fill"_s, gauge)), white);
        QCOMPARE(strokeOf(panelOf(gauge)), word(Color::faded(Qt::white, 0.1)) + u" 1"_s);
        m_window->hover(this->gauge(u"Disk I/O"_s));
        QVERIFY(eventually([&] { return gauge->scale() == 1.0; }));
        QCOMPARE(colorOf(name), gray);
    }

    void performanceModeMovesItsSwitch()
    {
        open();
        auto *toggle = m_window->control(QAccessible::CheckBox, u"Performance Mode"_s);
        QVERIFY(!toggle->property("checked").toBool());
        m_window->click(toggle);
        QVERIFY(toggle->property("checked").toBool());
        QVERIFY(state().isPerformanceMode());
        m_window->click(toggle);
        QVERIFY(!toggle->property("checked").toBool());
    }

    void hasAsManyColumnsAsFit_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("columns");

        QTest::newRow("a narrow window") << 300 << 1;
        QTest::newRow("just two") << 64 + 380 << 2;
        QTest::newRow("not yet two") << 64 + 379 << 1;
        QTest::newRow("four") << 1000 << 4;
        QTest::newRow("four that cannot all be as wide") << 1001 << 4;
        QTest::newRow("more columns than gauges") << 1700 << 8;
    }

    void hasAsManyColumnsAsFit()
    {
        QFETCH(int, width);
        QFETCH(int, columns);
        open({width, 900});
        const auto first = gauges().first(4);
        QList<QRectF> line;
        for (const auto *gauge : first) {
            if (placeOf(gauge).top() == placeOf(first.at(0)).top()) {
                line.append(placeOf(gauge));
            }
        }
        QCOMPARE(line.size(), std::min(columns, 4));
        QCOMPARE(line.first().left(), 32.0);
        // The columns share the whole line, also where there are fewer gauges than columns.
        QCOMPARE(line.last().right(), std::round(32 + double(line.size()) / columns * (width - 64 + 20)) - 20);
        for (int i = 0; i < line.size(); ++i) {
            QVERIFY(columns == 1 || line.at(i).width() >= 180);
            QVERIFY(i == 0 || line.at(i).left() - line.at(i - 1).right() == 20);
        }
    }

    void keepsItsLookAtTheHeading()
    {
        open();
        auto *title = m_window->text(u"SYSTEM TELEMETRY"_s);
        QCOMPARE(fontOf(title), u"Inter 24 700"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeOf(title).left(), 32.0);
        auto *subtitle = m_window->text(u"Real-time hardware & training monitoring"_s);
        QCOMPARE(fontOf(subtitle), u"Inter 14 400"_s);
        QCOMPARE(colorOf(subtitle), gray);
        QCOMPARE(placeOf(m_window->control(QAccessible::CheckBox, u"Performance Mode"_s)).right(), 1000.0 - 32);
        auto *section = m_window->text(u"GPU HEALTH"_s);
        QCOMPARE(fontOf(section), u"Geist Mono 14 700"_s);
        // Fonts keep it in sixty-fourths.
        QVERIFY(std::abs(section->property("font").value<QFont>().letterSpacing() - 1.2) < 1 / 64.0);
        QCOMPARE(colorOf(section), gray);
        QCOMPARE(colorOf(m_window->symbol(u"server.rack"_s)), word(Color::cyan()));
    }

    void keepsItsLookAtAGauge()
    {
        open();
        auto *gauge = this->gauge(u"GPU Temp"_s);
        auto *panel = panelOf(gauge);
        QCOMPARE(panel->property("radius").toInt(), 20);
        QCOMPARE(colorOf(panel), word(Color::faded(Qt::white, 0.03)));
        QCOMPARE(strokeOf(panel), word(Color::faded(Qt::white, 0.05)) + u" 1"_s);
        QCOMPARE(arc(0)->height(), 100.0);
        QCOMPARE(arc(0)->strokeWidth(), 8.0);
        QCOMPARE(arc(0)->glow(), 6.0);
        QCOMPARE(placeOf(arc(0)).top() - placeOf(gauge).top(), 16.0);
        QCOMPARE(number(0)->font().pixelSize(), 28);
        QCOMPARE(number(0)->font().weight(), QFont::Bold);
        auto *unit = m_window->text(u"°C"_s, gauge);
        QCOMPARE(fontOf(unit), u"Inter 11 500"_s);
        QCOMPARE(colorOf(unit), gray);
        QCOMPARE(fontOf(m_window->text(u"GPU Temp"_s, gauge)), u"Open Runde 12 500"_s);
    }

    void drawsItsFigureInWhiteAndItsArcInItsColour()
    {
        open();
        const QImage picture = m_view->grabWindow();
        const auto countOf = [&](const QRectF &area, auto &&matches) {
            int count = 0;
            for (int y = int(area.top()); y < int(area.bottom()); ++y) {
                for (int x = int(area.left()); x < int(area.right()); ++x) {
                    count += matches(picture.pixelColor(x, y)) ? 1 : 0;
                }
            }
            return count;
        };
        QVERIFY(countOf(placeOf(number(0)), [](const QColor &pixel) { return pixel.lightness() > 200; }) > 60);
        QVERIFY(countOf(placeOf(arc(0)), [](const QColor &pixel) { return pixel.blue() > pixel.red() + 80; }) > 500);
        QVERIFY(countOf(placeOf(arc(8)), [](const QColor &pixel) { return pixel.red() > pixel.blue() + 80; }) > 500);
    }

    void scrollsWhereTheWindowIsLow()
    {
        open({1000, 500});
        auto *last = gauge(u"Data Quality"_s);
        QVERIFY(placeOf(last).bottom() > 500);
        m_window->press(Qt::Key_Tab);
        m_window->press(Qt::Key_End);
        QVERIFY(eventually([&] { return placeOf(last).bottom() <= 500 - 31; }));
    }

    void startsAfreshAfterAnotherVisit()
    {
        open();
        m_world->clock.advance(20s);
        QVERIFY(state().gpuTemp() != 65);
        close();
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        open();
        QCOMPARE(state().gpuTemp(), 65.0);
        QCOMPARE(number(0)->text(), u"65"_s);
    }

    void doesNotGrowInAnHourOfTicks()
    {
        open();
        const auto pass = [&](int ticks) {
            for (int i = 0; i < ticks; ++i) {
                m_world->clock.advance(500ms);
                QCoreApplication::processEvents();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
        };
        pass(1200);
        if (!memoryIsMeasurable) {
            QSKIP("Memory cannot be measured under a sanitizer.");
        }
        const PeakMemory memory;
        pass(7200);
        QVERIFY2(memory.growth() < 1024 * 1024, qPrintable(QString::number(memory.growth())));
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_GaugeAnalyticsDashboardView)
#include "tst_GaugeAnalyticsDashboardView.moc"
