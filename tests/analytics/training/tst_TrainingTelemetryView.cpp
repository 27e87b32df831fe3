#include "analytics/AnalyticsDataManager.h"
#include "analytics/training/TrainingTelemetryState.h"
#include "app/theme/Color.h"
#include "charts/LineSeries.h"
#include "platform/ProcessMemory.h"
#include "support/ViewTest.h"

#include <QQmlListReference>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const QString gray = word(Color::gray());

} // namespace

class tst_TrainingTelemetryView : public ViewTest {
    Q_OBJECT

private:
    void open(bool full = false, QSize size = {1220, 760})
    {
        ViewTest::open(u"Analytics/TrainingTelemetryView.qml"_s, size);
        m_view->setColor(Qt::black);
        setFull(full);
    }
    void setFull(bool full) { m_view->rootObject()->setProperty("isFullTelemetry", full); }

    TrainingTelemetryState &state() const { return *m_view->rootObject()->findChild<TrainingTelemetryState *>(); }
    void pass(int seconds)
    {
        m_world->clock.advance(std::chrono::seconds(seconds));
        settle();
    }

    // Title, value and trend of each card, in order.
    QStringList cards() const
    {
        QStringList cards;
        for (const auto *card : m_window->all(u"MetricCard"_s)) {
            cards.append(
                QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(card))->text(QAccessible::Name));
        }
        return cards;
    }
    QStringList charts() const
    {
        QStringList titles;
        for (const auto *chart : m_window->all(u"TelemetryChart"_s)) {
            titles.append(chart->property("title").toString());
        }
        return titles;
    }
    bool showsMonitor() const { return !m_window->all(u"SystemPerformanceMonitor"_s).isEmpty(); }
    QQuickItem *slider(const QString &name) const { return m_window->control(QAccessible::Slider, name); }
    // What stands beside or below a control's label.
    QString valueOf(const QString &label) const
    {
        for (const auto *group : m_window->all(u"ControlGroup"_s)) {
            if (group->property("label").toString() == label) {
                return m_window->texts(group).last() == label ? m_window->texts(group).first()
                                                              : m_window->texts(group).last();
            }
        }
        return {};
    }
    QPoint onSlider(const QQuickItem *slider, double part) const
    {
        const QRectF place = placeOf(slider);
        return QPointF(place.left() + 8 + part * (place.width() - 16), place.center().y()).toPoint();
    }

private slots:
    void showsFourCardsAndTheLossChartInCompactMode()
    {
        open();
        QCOMPARE(cards().join(u'|'),
            u"TRAIN LOSS: 0.421, -0.02|VAL LOSS: 0.455, +0.01|ACCURACY: 94.2%, +1.2%|TOKENS/SEC: 4250, Stable"_s);
        QCOMPARE(charts(), QStringList{u"LOSS CURVES"_s});
        QVERIFY(!showsMonitor());
    }

    void addsTwoCardsAChartAndTheMonitorInFullMode()
    {
        open(true);
        QCOMPARE(cards().sliced(4).join(u'|'), u"GRAD NORM: 1.2, High|LR STABILITY: 98%, Stable"_s);
        QCOMPARE(charts(), (QStringList{u"LOSS CURVES"_s, u"LEARNING RATE"_s}));
        QVERIFY(showsMonitor());
        QCOMPARE(m_window->all(u"SystemPerformanceMonitor"_s).value(0)->height(), 160.0);
        for (auto *chart : m_window->all(u"TelemetryChart"_s)) {
            QCOMPARE(chart->height(), 250.0);
        }
    }

    void keepsSeriesAndCounterWhenTheModeChanges()
    {
        open();
        pass(7);
        const auto points = state().lossPoints();
        setFull(true);
        QCOMPARE(state().lossPoints(), points);
        QCOMPARE(state().currentStep(), 1427);
        pass(1);
        QCOMPARE(state().lossPoints().first(7), points);
        setFull(false);
        QCOMPARE(state().lossPoints().size(), 8);
        QCOMPARE(charts(), QStringList{u"LOSS CURVES"_s});
        QVERIFY(!showsMonitor());
    }

    void fillsTheLearningRateInCompactModeToo()
    {
        open();
        pass(5);
        QCOMPARE(state().learningRatePoints().size(), 5);
        QVERIFY(!charts().contains(u"LEARNING RATE"_s));
    }

    void leavesTheChartBlankForASecond()
    {
        open();
        const auto curves = [&] {
            const QImage picture = m_view->grabWindow();
            const QRectF area = placeOf(m_window->all(u"TelemetryChart"_s).value(0));
            QSet<QRgb> colors;
            for (int y = int(area.top()) + 40; y < int(area.bottom()); ++y) {
                for (int x = int(area.left()); x < int(area.right()); ++x) {
                    colors.insert(picture.pixel(x, y));
                }
            }
            return colors.contains(Color::green().rgb()) && colors.contains(Color::yellow().rgb());
        };
        QVERIFY(!curves());
        pass(10);
        QVERIFY(curves());
    }

    void coloursATrendByItsSignAlone()
    {
        open(true);
        QCOMPARE(colorOf(m_window->text(u"-0.02"_s)), word(Color::green()));
        QCOMPARE(colorOf(m_window->text(u"+0.01"_s)), word(Color::red()));
        QCOMPARE(colorOf(m_window->text(u"+1.2%"_s)), word(Color::red()));
        QCOMPARE(colorOf(m_window->text(u"Stable"_s)), gray);
        QCOMPARE(colorOf(m_window->text(u"High"_s)), gray);
    }

    void followsTheManagersWalkOnTheCardsOnly()
    {
        open();
        const QStringList before = cards();
        pass(2);
        QVERIFY(eventually([&] { return cards() != before; }));
        const auto &manager = AnalyticsDataManager::shared();
        QCOMPARE(m_window->texts(m_window->all(u"MetricCard"_s).value(0)).at(1),
            QString::asprintf("%.3f", manager.trainingLoss()));
        // Two seconds of one walk, two points of the other.
        QCOMPARE(state().currentStep(), 1422);
        QCOMPARE(manager.currentStep(), 1430);
    }

    void showsItsControlsWithTheirFirstValues()
    {
        open();
        QCOMPARE(valueOf(u"Learning Rate"_s), u"0.00030"_s);
        QCOMPARE(valueOf(u"Batch Size"_s), u"32"_s);
        QCOMPARE(valueOf(u"Dropout Rate"_s), u"0.10"_s);
        QCOMPARE(valueOf(u"Gradient Clipping"_s), u"1.0"_s);
        QVERIFY(m_window->control(QAccessible::CheckBox, u"Early Stopping"_s)->property("checked").toBool());
        QVERIFY(!m_window->control(QAccessible::CheckBox, u"Fast Eval Mode"_s)->property("checked").toBool());
    }

    void goesOnTickingWhileASliderIsDragged()
    {
        open();
        pass(2);
        auto *rate = slider(u"Learning Rate"_s);
        QTest::mousePress(m_view.get(), Qt::LeftButton, {}, onSlider(rate, 0.5));
        QTest::mouseMove(m_view.get(), onSlider(rate, 0.8));
        const double dragged = state().learningRate();
        QVERIFY(dragged > 0.0007);
        pass(3);
        QCOMPARE(state().lossPoints().size(), 5);
        QCOMPARE(state().learningRateData().last().value, (1424 / -5000.0 + 1) * dragged);
        QTest::mouseMove(m_view.get(), onSlider(rate, 0));
        QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, onSlider(rate, 0));
        QCOMPARE(state().learningRate(), 0.00001);
        QCOMPARE(valueOf(u"Learning Rate"_s), u"0.00001"_s);
        pass(1);
        QCOMPARE(state().learningRateData().last().value, (1425 / -5000.0 + 1) * 0.00001);
        QCOMPARE(state().learningRateData().at(0).value, (1420 / -5000.0 + 1) * 0.0003);
    }

    void movesEverySliderBetweenItsEnds_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("lowest");
        QTest::addColumn<QString>("highest");

        QTest::newRow("Learning Rate") << u"Learning Rate"_s << u"0.00001"_s << u"0.00100"_s;
        QTest::newRow("Dropout Rate") << u"Dropout Rate"_s << u"0.00"_s << u"0.50"_s;
        QTest::newRow("Gradient Clipping") << u"Gradient Clipping"_s << u"0.1"_s << u"5.0"_s;
    }

    void movesEverySliderBetweenItsEnds()
    {
        QFETCH(QString, name);
        open();
        auto *control = slider(name);
        const double length = control->width();
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, onSlider(control, 0.4));
        m_window->press(Qt::Key_Home);
        QTEST(valueOf(name), "lowest");
        m_window->press(Qt::Key_End);
        QTEST(valueOf(name), "highest");
        QCOMPARE(control->width(), length);
    }

    void stepsTheBatchSizeBelowZero()
    {
        open();
        auto *stepper = m_window->control(QAccessible::SpinBox, u"Batch Size"_s);
        const QRectF place = placeOf(stepper);
        const QPoint down = QPointF(place.center().x(), place.bottom() - 5).toPoint();
        const QPoint up = QPointF(place.center().x(), place.top() + 5).toPoint();
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, up);
        QCOMPARE(valueOf(u"Batch Size"_s), u"36"_s);
        for (int i = 0; i < 9; ++i) {
            QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, down);
        }
        QCOMPARE(valueOf(u"Batch Size"_s), u"0"_s);
        QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, down);
        QCOMPARE(valueOf(u"Batch Size"_s), u"-4"_s);
    }

    void goesOnWhateverIsSwitchedOrPressed()
    {
        open();
        for (const QString &name : {u"Early Stopping"_s, u"Fast Eval Mode"_s}) {
            auto *control = m_window->control(QAccessible::CheckBox, name);
            const bool before = control->property("checked").toBool();
            m_window->click(control);
            QCOMPARE(control->property("checked").toBool(), !before);
        }
        m_window->click(m_window->button(u"PAUSE TRAINING"_s));
        m_window->click(m_window->button(u"STOP TRAINING"_s));
        pass(3);
        QCOMPARE(state().lossPoints().size(), 3);
        QCOMPARE(state().currentStep(), 1423);
    }

    void startsAfreshAfterAnotherVisit()
    {
        open();
        pass(60);
        state().setLearningRate(0.001);
        close();
        // The manager's own timer goes on.
        QCOMPARE(m_world->clock.scheduledCount(), 1);
        open();
        QCOMPARE(state().currentStep(), 1420);
        QVERIFY(state().lossPoints().isEmpty());
        QCOMPARE(valueOf(u"Learning Rate"_s), u"0.00030"_s);
    }

    void keepsItsLookAtTheCards()
    {
        open();
        auto *card = m_window->all(u"MetricCard"_s).value(0);
        QCOMPARE(placeOf(card).topLeft(), QPointF(24, 24));
        QCOMPARE(colorOf(card), u"#ff1a1a1a"_s);
        QCOMPARE(card->property("radius").toInt(), 8);
        QCOMPARE(strokeOf(card), u"#ff333333 1"_s);
        auto *title = m_window->text(u"TRAIN LOSS"_s);
        auto *value = m_window->text(u"0.421"_s);
        auto *trend = m_window->text(u"-0.02"_s);
        QCOMPARE(fontOf(title), u"Geist Mono 10 700"_s);
        QCOMPARE(colorOf(title), gray);
        QCOMPARE(fontOf(value), u"Geist Mono 24 500"_s);
        QCOMPARE(colorOf(value), word(Color::green()));
        QCOMPARE(fontOf(trend), u"Geist Mono 11 400"_s);
        QCOMPARE(placeOf(title).topLeft() - placeOf(card).topLeft(), QPointF(12, 12));
        QCOMPARE(placeOf(value).top(), placeOf(title).bottom() + 8);
        QCOMPARE(placeOf(trend).top(), placeOf(value).bottom() + 8);
    }

    void hasAColourForEachFigure()
    {
        open(true);
        QStringList colors;
        for (const auto *card : m_window->all(u"MetricCard"_s)) {
            const auto labels = m_window->all(u"Label"_s, card);
            colors.append(labels.value(0)->property("text").toString() + u' ' + colorOf(labels.value(1)));
        }
        QCOMPARE(colors,
            (QStringList{u"TRAIN LOSS "_s + word(Color::green()), u"VAL LOSS "_s + word(Color::yellow()),
                u"ACCURACY "_s + word(Color::cyan()), u"TOKENS/SEC #ffffffff"_s,
                u"GRAD NORM "_s + word(Color::purple()), u"LR STABILITY "_s + word(Color::blue())}));
    }

    void fillsTheLineWithItsCards()
    {
        open(true);
        // Beside the panel and its own margins there is room for five columns of at least 140, which cannot all be as wide.
        const auto cards = m_window->all(u"MetricCard"_s);
        QCOMPARE(placeOf(cards.at(0)).left(), 24.0);
        QCOMPARE(placeOf(cards.at(4)).right(), 1220.0 - 280 - 24);
        for (int i = 1; i < 5; ++i) {
            QCOMPARE(placeOf(cards.at(i)).left() - placeOf(cards.at(i - 1)).right(), 12.0);
            QVERIFY(std::abs(cards.at(i)->width() - cards.at(0)->width()) <= 1);
        }
        QCOMPARE(placeOf(cards.at(5)).left(), 24.0);
        QCOMPARE(placeOf(cards.at(5)).top() - placeOf(cards.at(0)).bottom(), 12.0);
    }

    void drawsEachCurveInItsColour()
    {
        open(true);
        pass(3);
        QStringList series;
        for (auto *chart : m_window->all(u"TelemetryChart"_s)) {
            QVERIFY(m_window->control(QAccessible::Heading, chart->property("title").toString(), chart));
            const QQmlListReference list(chart, "series");
            for (int i = 0; i < list.count(); ++i) {
                const auto *line = qobject_cast<LineSeries *>(list.at(i));
                QCOMPARE(line->points().size(), 3);
                series.append(line->name() + u' ' + word(line->color()));
            }
        }
        QCOMPARE(series,
            (QStringList{u"Train Loss "_s + word(Color::green()), u"Val Loss "_s + word(Color::yellow()),
                u"Learning Rate "_s + word(Color::purple())}));
    }

    void smoothsItsCurvesAndHidesTheSteps()
    {
        open(true);
        pass(3);
        for (auto *card : m_window->all(u"TelemetryChart"_s)) {
            auto *chart = m_window->all(u"LineChart"_s, card).value(0);
            QVERIFY(chart->property("smoothed").toBool());
            const QRectF plot = placeOf(chart->property("plot").value<QQuickItem *>());
            const auto labels = m_window->all(u"Label"_s, chart);
            QVERIFY(labels.size() > 1);
            for (const auto *label : labels) {
                QVERIFY(placeOf(label).right() < plot.left());
            }
        }
    }

    void keepsItsLookAtTheControls()
    {
        open();
        auto *panel = m_window->all(u"LiveControls"_s).value(0);
        QCOMPARE(placeOf(panel), QRectF(1220 - 280, 0, 280, 760));
        QCOMPARE(colorOf(panel), u"#ff161616"_s);
        auto *heading = m_window->text(u"LIVE CONTROLS"_s);
        QCOMPARE(fontOf(heading), u"Geist Mono 12 900"_s);
        QCOMPARE(colorOf(heading), gray);
        auto *label = m_window->text(u"Dropout Rate"_s);
        QCOMPARE(fontOf(label), u"Geist Mono 11 400"_s);
        QCOMPARE(colorOf(label), gray);
        auto *value = m_window->text(u"0.10"_s);
        QCOMPARE(fontOf(value), u"Geist Mono 11 400"_s);
        QCOMPARE(colorOf(value), word(Color::cyan()));
        auto *pause = m_window->button(u"PAUSE TRAINING"_s);
        QCOMPARE(colorOf(pause, "fillColor"), word(Color::yellow()));
        QCOMPARE(colorOf(pause, "labelColor"), u"#ff000000"_s);
        QCOMPARE(pause->width(), 240.0);
        auto *stop = m_window->button(u"STOP TRAINING"_s);
        QCOMPARE(colorOf(stop, "fillColor"), word(Color::red()));
        QCOMPARE(colorOf(stop, "labelColor"), u"#ffffffff"_s);
        QCOMPARE(stop->property("radius").toInt(), 4);
    }

    void bringsEveryControlIntoSightInALowWindow()
    {
        open(false, {900, 360});
        auto *stop = m_window->button(u"STOP TRAINING"_s);
        QVERIFY(placeOf(stop).bottom() > 360);
        for (int i = 0; i < 30 && !stop->hasActiveFocus(); ++i) {
            m_window->press(Qt::Key_Tab);
        }
        QVERIFY(stop->hasActiveFocus());
        QVERIFY(eventually([&] { return placeOf(stop).bottom() <= 360; }));
    }

    void doesNotGrowInAnHourOfTicks()
    {
        open(true);
        const auto run = [&](int ticks) {
            for (int i = 0; i < ticks; ++i) {
                m_world->clock.advance(1s);
                QCoreApplication::processEvents();
                // Outside of an event loop nothing is deleted later.
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
        };
        run(600);
        if (!memoryIsMeasurable) {
            QSKIP("Memory cannot be measured under a sanitizer.");
        }
        const PeakMemory memory;
        run(3600);
        QVERIFY2(memory.growth() < 1024 * 1024, qPrintable(QString::number(memory.growth())));
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_TrainingTelemetryView)
#include "tst_TrainingTelemetryView.moc"
