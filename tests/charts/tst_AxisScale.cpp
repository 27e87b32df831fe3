// Domains, ticks and their labels for ranges of every size and place.

#include "charts/AxisScale.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace quillmere;

class tst_AxisScale : public QObject {
    Q_OBJECT

private slots:
    void measuresFiniteNumbersOnly();
    void hasNoTicksForNothing();
    void takesRoundSteps_data();
    void takesRoundSteps();
    void endsAtItsTicks();
    void endsAtItsValuesWhereTold();
    void opensAroundASingleValue_data();
    void opensAroundASingleValue();
    void writesLabelsWithoutIdleZeros_data();
    void writesLabelsWithoutIdleZeros();
    void placesValuesBetweenItsEnds();
    void bearsTheEndsOfWhatADoubleHolds_data();
    void bearsTheEndsOfWhatADoubleHolds();
    void keepsItsPromisesForAnyRange();
};

namespace {

ValueRange range(double least, double greatest)
{
    return {least, greatest};
}

QStringList labelsOf(const AxisScale &scale)
{
    QStringList labels;
    for (const double tick : scale.ticks()) {
        labels.append(scale.label(tick));
    }
    return labels;
}

// What holds for every scale that is not empty; the words say what does not.
QString brokenPromise(const AxisScale &scale, int steps)
{
    if (!std::isfinite(scale.lower()) || !std::isfinite(scale.upper()) || !(scale.lower() < scale.upper())) {
        return u"ends"_s;
    }
    const double lead = scale.step() / std::pow(10, std::floor(std::log10(scale.step()) + 1e-9));
    if (std::abs(lead - 1) > 1e-9 && std::abs(lead - 2) > 1e-9 && std::abs(lead - 5) > 1e-9) {
        return u"step"_s;
    }
    const QList<double> ticks = scale.ticks();
    if (ticks.size() > 2 * steps + 2) {
        return u"%1 ticks for %2 steps"_s.arg(ticks.size()).arg(steps);
    }
    const double hair = scale.step() / 100;
    for (qsizetype i = 0; i < ticks.size(); ++i) {
        if (!(scale.lower() - hair <= ticks[i] && ticks[i] <= scale.upper() + hair)) {
            return u"tick out of the axis"_s;
        }
        if (i > 0 && std::abs(ticks[i] - ticks[i - 1] - scale.step()) > hair) {
            return u"distance of ticks"_s;
        }
        const QString label = scale.label(ticks[i]);
        if (std::abs(label.toDouble() - ticks[i]) > hair) {
            return u"label %1 of %2"_s.arg(label).arg(ticks[i], 0, 'g', 17);
        }
        const QString mantissa = label.section(u'e', 0, 0);
        if (mantissa.contains(u'.') && (mantissa.endsWith(u'0') || mantissa.endsWith(u'.'))) {
            return u"idle zeros in %1"_s.arg(label);
        }
    }
    const QStringList labels = labelsOf(scale);
    if (QSet<QString>(labels.begin(), labels.end()).size() != labels.size()) {
        return u"equal labels: "_s + labels.join(u' ');
    }
    return {};
}

} // namespace

void tst_AxisScale::measuresFiniteNumbersOnly()
{
    ValueRange range;
    QVERIFY(range.isEmpty());
    range.include(qQNaN());
    range.include(qInf());
    range.include(-qInf());
    QVERIFY(range.isEmpty());
    range.include(3);
    range.include(qQNaN());
    range.include(-2);
    QCOMPARE(range, (ValueRange{-2, 3}));
}

void tst_AxisScale::hasNoTicksForNothing()
{
    const AxisScale scale(ValueRange(), 5, AxisScale::Ends::AtTicks);
    QVERIFY(scale.isEmpty());
    QCOMPARE(scale.ticks(), QList<double>());
    QCOMPARE(scale.place(7), 0.0);
    QVERIFY(AxisScale().isEmpty());
}

void tst_AxisScale::takesRoundSteps_data()
{
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("greatest");
    QTest::addColumn<int>("steps");
    QTest::addColumn<QStringList>("labels");

    const auto row = [](const char *name, double least, double greatest, int steps, const char *labels) {
        QTest::newRow(name) << least << greatest << steps << QString::fromLatin1(labels).split(u' ');
    };
    row("loss", 0.05, 1.15, 4, "0 0.2 0.4 0.6 0.8 1 1.2");
    row("accuracy", 0.5, 0.88, 4, "0.5 0.6 0.7 0.8 0.9");
    row("counts", 0, 4500, 4, "0 1000 2000 3000 4000 5000");
    row("below zero", -40, 31, 4, "-40 -20 0 20 40");
    row("fives", 0, 20, 4, "0 5 10 15 20");
    row("twos", 0, 8, 4, "0 2 4 6 8");
    row("ones", 0, 0.004, 4, "0 0.001 0.002 0.003 0.004");
    row("one step", 0, 900, 1, "0 1000");
}

void tst_AxisScale::takesRoundSteps()
{
    QFETCH(double, least);
    QFETCH(double, greatest);
    QFETCH(int, steps);
    QFETCH(QStringList, labels);
    QCOMPARE(labelsOf(AxisScale(range(least, greatest), steps, AxisScale::Ends::AtTicks)), labels);
}

void tst_AxisScale::endsAtItsTicks()
{
    const AxisScale scale(range(0.05, 1.15), 4, AxisScale::Ends::AtTicks);
    QCOMPARE(scale.lower(), 0.0);
    QCOMPARE(scale.upper(), 1.2);
    // A value that is a tick itself, up to rounding, moves no end further out.
    const AxisScale exact(range(0.1 + 0.2, 0.9), 6, AxisScale::Ends::AtTicks);
    QCOMPARE(labelsOf(exact).first(), u"0.3"_s);
    QCOMPARE(labelsOf(exact).last(), u"0.9"_s);
}

void tst_AxisScale::endsAtItsValuesWhereTold()
{
    const AxisScale scale(range(1, 19), 4, AxisScale::Ends::AtValues);
    QCOMPARE(scale.lower(), 1.0);
    QCOMPARE(scale.upper(), 19.0);
    QCOMPARE(labelsOf(scale), QStringList({u"5"_s, u"10"_s, u"15"_s}));
}

void tst_AxisScale::opensAroundASingleValue_data()
{
    QTest::addColumn<double>("value");
    for (const double value : {0.0, -0.0, 1.0, -7.5, 0.0003, 1e300, -1e300, 1e-300, 5e-324, 1e15}) {
        QTest::addRow("%g", value) << value;
    }
}

void tst_AxisScale::opensAroundASingleValue()
{
    QFETCH(double, value);
    for (const auto ends : {AxisScale::Ends::AtValues, AxisScale::Ends::AtTicks}) {
        const AxisScale scale(range(value, value), 4, ends);
        QCOMPARE(brokenPromise(scale, 4), QString());
        QVERIFY(scale.lower() < value && value < scale.upper());
        QVERIFY(scale.place(value) > 0.2 && scale.place(value) < 0.8);
    }
}

void tst_AxisScale::writesLabelsWithoutIdleZeros_data()
{
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("greatest");
    QTest::addColumn<QStringList>("labels");

    const auto row = [](const char *name, double least, double greatest, const char *labels) {
        QTest::newRow(name) << least << greatest << QString::fromLatin1(labels).split(u' ');
    };
    row("zero is one figure", -1, 1, "-1 -0.5 0 0.5 1");
    row("hundreds keep their zeros", 0, 400, "0 100 200 300 400");
    row("a small change of a large number", 999999999, 1000000001,
        "999999999 999999999.5 1000000000 1000000000.5 1000000001");
    row("learning rates", 0.000211, 0.000215, "0.000211 0.000212 0.000213 0.000214 0.000215");
    row("too small for decimals", 0, 4e-9, "0 1e-9 2e-9 3e-9 4e-9");
    row("too large for digits", 0, 2e10, "0 0.5e10 1e10 1.5e10 2e10");
}

void tst_AxisScale::writesLabelsWithoutIdleZeros()
{
    QFETCH(double, least);
    QFETCH(double, greatest);
    QFETCH(QStringList, labels);
    QCOMPARE(labelsOf(AxisScale(range(least, greatest), 4, AxisScale::Ends::AtTicks)), labels);
}

void tst_AxisScale::placesValuesBetweenItsEnds()
{
    const AxisScale scale(range(-10, 30), 4, AxisScale::Ends::AtTicks);
    QCOMPARE(scale.place(-10), 0.0);
    QCOMPARE(scale.place(0), 0.25);
    QCOMPARE(scale.place(30), 1.0);
    QCOMPARE(scale.place(70), 2.0);
}

void tst_AxisScale::bearsTheEndsOfWhatADoubleHolds_data()
{
    constexpr double largest = std::numeric_limits<double>::max();
    QTest::addColumn<double>("least");
    QTest::addColumn<double>("greatest");
    QTest::newRow("all there is") << -largest << largest;
    QTest::newRow("the upper half") << 0.0 << largest;
    QTest::newRow("the largest alone") << largest << largest;
    QTest::newRow("the smallest") << 0.0 << std::numeric_limits<double>::denorm_min();
    QTest::newRow("neighbours") << 1e15 << std::nextafter(1e15, 2e15);
    QTest::newRow("neighbours of one") << 1.0 << std::nextafter(1.0, 2.0);
}

void tst_AxisScale::bearsTheEndsOfWhatADoubleHolds()
{
    QFETCH(double, least);
    QFETCH(double, greatest);
    for (const auto ends : {AxisScale::Ends::AtValues, AxisScale::Ends::AtTicks}) {
        const AxisScale scale(range(least, greatest), 5, ends);
        QCOMPARE(brokenPromise(scale, 5), QString());
        for (const double value : {least, greatest}) {
            QVERIFY(std::isfinite(scale.place(value)));
            QVERIFY(scale.place(value) >= 0 && scale.place(value) <= 1);
        }
    }
}

// Ranges of all magnitudes, on either side of zero and across it, and narrow ones far from it.
void tst_AxisScale::keepsItsPromisesForAnyRange()
{
    QRandomGenerator random(20261120);
    for (int i = 0; i < 20000; ++i) {
        const double size = std::pow(10, random.bounded(80.0) - 40) * (random.bounded(2) ? 1 : -1);
        const double span = std::abs(size) * std::pow(10, random.bounded(18.0) - 15);
        const double least = size * random.bounded(3);
        const double greatest = least + span;
        const int steps = 1 + int(random.bounded(10));
        const auto ends = random.bounded(2) ? AxisScale::Ends::AtValues : AxisScale::Ends::AtTicks;
        const AxisScale scale(range(least, greatest), steps, ends);
        const QString broken = brokenPromise(scale, steps);
        QVERIFY2(broken.isEmpty(),
            qPrintable(
                u"%1: %2 to %3 in %4 steps"_s.arg(broken).arg(least, 0, 'g', 17).arg(greatest, 0, 'g', 17).arg(steps)));
        const double hair = scale.step() / 100;
        QVERIFY(scale.lower() <= least + hair && scale.upper() >= greatest - hair);
        if (ends == AxisScale::Ends::AtTicks) {
            QVERIFY(scale.ticks().size() >= 2);
        }
    }
}

QTEST_GUILESS_MAIN(tst_AxisScale)
#include "tst_AxisScale.moc"
