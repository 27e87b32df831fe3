#include "analytics/gauges/GaugeMeterState.h"

#include "app/theme/Color.h"
#include "support/AnimationTime.h"
#include "support/PlatformEnvironment.h"

#include <QSignalSpy>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmere {

using testing::PlatformEnvironment;

class tst_GaugeMeterState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;

private slots:
    void init() { m_world = std::make_unique<PlatformEnvironment>(); }
    void cleanup() { m_world.reset(); }

    void showsNothingBeforeItComesOnView()
    {
        GaugeMeterState gauge;
        gauge.setMaxValue(100);
        gauge.setThresholds({60, 80, 90});
        gauge.setValue(65);
        QCOMPARE(gauge.currentValue(), 0.0);
        QCOMPARE(gauge.fraction(), 0.0);
        QCOMPARE(gauge.text(), u"0"_s);
        QCOMPARE(gauge.statusColor(), Color::blue());
    }

    void risesFromZeroInHalfASecond()
    {
        m_world->environment.animations = true;
        testing::AnimationTime time;
        GaugeMeterState gauge;
        gauge.setMaxValue(100);
        gauge.setValue(80);
        gauge.appear();
        testing::settle();
        QCOMPARE(gauge.currentValue(), 0.0);
        QCOMPARE(gauge.text(), u"80"_s);
        // Slow at first and at the end, by equal parts on both sides of the middle.
        time.pass(125);
        QCOMPARE(gauge.currentValue(), 80 * 0.125);
        time.pass(125);
        QCOMPARE(gauge.currentValue(), 40.0);
        time.pass(125);
        QCOMPARE(gauge.currentValue(), 80 * 0.875);
        time.pass(124);
        QVERIFY(gauge.currentValue() < 80);
        time.pass(1);
        QCOMPARE(gauge.currentValue(), 80.0);
        QCOMPARE(gauge.fraction(), 0.8);
    }

    void followsAChangeInThreeTenthsOfASecond()
    {
        m_world->environment.animations = true;
        testing::AnimationTime time;
        GaugeMeterState gauge;
        gauge.setMaxValue(100);
        gauge.setValue(40);
        gauge.appear();
        testing::settle();
        time.pass(500);
        gauge.setValue(60);
        testing::settle();
        QCOMPARE(gauge.currentValue(), 40.0);
        time.pass(150);
        QCOMPARE(gauge.currentValue(), 50.0);
        time.pass(149);
        QVERIFY(gauge.currentValue() < 60);
        time.pass(1);
        QCOMPARE(gauge.currentValue(), 60.0);
    }

    void followsAChangeFromWhereItStandsWhileItIsStillOnItsWay()
    {
        m_world->environment.animations = true;
        testing::AnimationTime time;
        GaugeMeterState gauge;
        gauge.setMaxValue(100);
        gauge.setValue(80);
        gauge.appear();
        testing::settle();
        time.pass(250);
        gauge.setValue(20);
        testing::settle();
        QCOMPARE(gauge.currentValue(), 40.0);
        time.pass(150);
        QCOMPARE(gauge.currentValue(), 30.0);
        time.pass(150);
        QCOMPARE(gauge.currentValue(), 20.0);
    }

    void endsExactlyAtItsValue()
    {
        m_world->environment.animations = true;
        testing::AnimationTime time;
        GaugeMeterState gauge;
        double value = 0.1;
        gauge.setValue(value);
        gauge.appear();
        testing::settle();
        time.pass(500);
        for (int i = 0; i < 50; ++i) {
            value += 0.37;
            gauge.setValue(value);
            testing::settle();
            time.pass(300);
            QVERIFY(gauge.currentValue() == value);
        }
    }

    void takesItsColourFromWhereItStandsInEachFrame()
    {
        m_world->environment.animations = true;
        testing::AnimationTime time;
        GaugeMeterState gauge;
        gauge.setThresholds({60, 80, 90});
        gauge.setMaxValue(100);
        gauge.setValue(100);
        QSignalSpy colours(&gauge, &GaugeMeterState::statusColorChanged);
        gauge.appear();
        testing::settle();
        time.pass(250); // 50
        QCOMPARE(gauge.statusColor(), Color::blue());
        time.pass(100); // 82
        QCOMPARE(gauge.statusColor(), Color::orange());
        time.pass(150);
        QCOMPARE(gauge.statusColor(), Color::red());
        QCOMPARE(colours.size(), 2);
    }

    void arrivesAtOnceWithoutAnimations()
    {
        GaugeMeterState gauge;
        gauge.setValue(5);
        gauge.appear();
        QCOMPARE(gauge.currentValue(), 5.0);
        gauge.setValue(6);
        QCOMPARE(gauge.currentValue(), 6.0);
    }

    void isEmptyWhereNothingIsItsLargestValue()
    {
        GaugeMeterState gauge;
        gauge.setMaxValue(0);
        gauge.setValue(5);
        gauge.appear();
        QCOMPARE(gauge.currentValue(), 5.0);
        QCOMPARE(gauge.fraction(), 0.0);
    }

    void fillsByALargestValueBelowOneAsByAnyOther()
    {
        GaugeMeterState gauge;
        gauge.setMaxValue(0.5);
        gauge.setValue(0.25);
        gauge.appear();
        QCOMPARE(gauge.fraction(), 0.5);
    }

    void takesTheHigherColourAtAThreshold_data()
    {
        QTest::addColumn<GaugeThresholds>("thresholds");
        QTest::addColumn<double>("value");
        QTest::addColumn<QColor>("color");

        const GaugeThresholds gpuTemp{60, 80, 90};
        QTest::newRow("below the warning") << gpuTemp << std::nextafter(80.0, 0.0) << Color::blue();
        QTest::newRow("80 on GPU Temp") << gpuTemp << 80.0 << Color::orange();
        QTest::newRow("below the critical value") << gpuTemp << std::nextafter(90.0, 0.0) << Color::orange();
        QTest::newRow("90 on GPU Temp") << gpuTemp << 90.0 << Color::red();
        QTest::newRow("at the normal value") << gpuTemp << 60.0 << Color::blue();
        // Thresholds that fall: the same rising rule.
        QTest::newRow("Throughput at its lowest") << GaugeThresholds{2000, 1000, 500} << 1000.0 << Color::red();
        QTest::newRow("Speed") << GaugeThresholds{2, 1, 0.5} << 4.5 << Color::red();
        QTest::newRow("Confidence") << GaugeThresholds{80, 60, 40} << 88.0 << Color::red();
        QTest::newRow("Data Quality") << GaugeThresholds{90, 80, 70} << 92.0 << Color::red();
        QTest::newRow("between thresholds that fall") << GaugeThresholds{80, 60, 40} << 50.0 << Color::red();
        QTest::newRow("below thresholds that fall") << GaugeThresholds{80, 60, 40} << 39.0 << Color::blue();
    }

    void takesTheHigherColourAtAThreshold()
    {
        QFETCH(GaugeThresholds, thresholds);
        QFETCH(double, value);
        GaugeMeterState gauge;
        gauge.setThresholds(thresholds);
        gauge.setMaxValue(5000);
        gauge.setValue(value);
        gauge.appear();
        QTEST(gauge.statusColor(), "color");
    }

    void showsFiguresWithoutDecimals_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");

        QTest::newRow("Loss") << 0.45 << u"0"_s;
        QTest::newRow("Grad Norm") << 1.2 << u"1"_s;
        QTest::newRow("Speed, a half between two") << 4.5 << u"4"_s;
        QTest::newRow("Confidence") << 0.88 * 100.0 << u"88"_s;
        QTest::newRow("VRAM Usage") << 8.2 << u"8"_s;
        QTest::newRow("thousands") << 3200.0 << u"3200"_s;
    }

    void showsFiguresWithoutDecimals()
    {
        QFETCH(double, value);
        GaugeMeterState gauge;
        gauge.setValue(value);
        gauge.appear();
        QTEST(gauge.text(), "text");
    }

    void fillsTheArcAndNoMoreBeyondTheLargestValueWhileTheTextIsTrue()
    {
        GaugeMeterState gauge;
        gauge.setMaxValue(24);
        gauge.setValue(24);
        gauge.appear();
        QCOMPARE(gauge.fraction(), 1.0);
        gauge.setValue(30);
        QCOMPARE(gauge.fraction(), 1.0);
        QCOMPARE(gauge.text(), u"30"_s);
        gauge.setValue(12);
        QCOMPARE(gauge.fraction(), 0.5);
        gauge.setValue(-3);
        QCOMPARE(gauge.fraction(), 0.0);
    }

    void tellsOnlyWhatIsAnother()
    {
        GaugeMeterState gauge;
        gauge.setMaxValue(100);
        gauge.setThresholds({60, 80, 90});
        gauge.setValue(65.1);
        gauge.appear();
        QSignalSpy texts(&gauge, &GaugeMeterState::textChanged);
        QSignalSpy colours(&gauge, &GaugeMeterState::statusColorChanged);
        QSignalSpy fractions(&gauge, &GaugeMeterState::fractionChanged);
        gauge.setValue(65.4);
        QCOMPARE(texts.size(), 0);
        QCOMPARE(colours.size(), 0);
        QCOMPARE(fractions.size(), 1);
        gauge.setValue(65.4);
        QCOMPARE(fractions.size(), 1);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_GaugeMeterState)
#include "tst_GaugeMeterState.moc"
