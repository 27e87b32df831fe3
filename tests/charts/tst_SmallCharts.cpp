// What rings, compact gauges, sparklines and strips of bars draw, pixel by pixel.

#include "app/theme/Color.h"
#include "charts/Picture.h"
#include "charts/RingGauge.h"

#include <QPainter>

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;

class tst_SmallCharts : public QObject {
    Q_OBJECT

private slots:
    void fillsTheRingClockwiseFromTheTop();
    void halvesTheRingUpright();
    void isAsThickAsTold();
    void fillsTheRingToItsFraction_data();
    void fillsTheRingToItsFraction();
    void opensTheCompactGaugeAtTheBottom();
    void fillsTheCompactGaugeToItsPartOfTheMaximum_data();
    void fillsTheCompactGaugeToItsPartOfTheMaximum();
    void isPaintedOnlyWhenSomethingChanged();
    void drawsTheSparklineThroughItsPoints();
    void passesOverPointsThatAreNoNumbers();
    void drawsBarsOfTheStripAtTheirPlaces();
    void isAsHighAsToldAndNeverHigher();
    void fadesTheBarsDownward();
};

namespace {

const QColor track(40, 40, 40);

// On the middle of a ring's stroke, at an angle in degrees clockwise from three o'clock.
QPointF onRing(double side, double stroke, double degrees)
{
    const double radius = (side - stroke) / 2;
    const double angle = degrees * std::numbers::pi / 180;
    return {side / 2 + radius * std::cos(angle), side / 2 + radius * std::sin(angle)};
}

QString ring(const QString &more)
{
    return u"RingGauge { objectName: \"it\"; x: 50; y: 50; width: 60; height: 60; color: \"#32d74b\"; trackColor: \"#282828\"\n%1 }"_s
        .arg(more);
}

// How many of 360 places on the stroke have a colour.
int degreesOf(Picture &picture, const QColor &color, double stroke)
{
    const QQuickItem *item = picture.item();
    const QImage image = picture.grab();
    int count = 0;
    for (int degree = 0; degree < 360; ++degree) {
        const QPointF place = item->mapToScene(onRing(item->width(), stroke, degree));
        count += isLike(image.pixelColor(int(std::floor(place.x())), int(std::floor(place.y()))), color, 30) ? 1 : 0;
    }
    return count;
}

class CountedRing : public RingGauge {
public:
    using RingGauge::RingGauge;
    void paint(QPainter *painter) override
    {
        ++paintings;
        RingGauge::paint(painter);
    }
    int paintings = 0;
};

} // namespace

void tst_SmallCharts::fillsTheRingClockwiseFromTheTop()
{
    Picture picture(ring(u"fraction: 0.25"_s));
    const QQuickItem *item = picture.item();
    QVERIFY(isLike(picture.at(item, onRing(60, 4, -85)), Color::green()));
    QVERIFY(isLike(picture.at(item, onRing(60, 4, -10)), Color::green()));
    QVERIFY(isLike(picture.at(item, onRing(60, 4, 20)), track));
    QVERIFY(isLike(picture.at(item, onRing(60, 4, 180)), track));
    QVERIFY(isLike(picture.at(item, onRing(60, 4, -110)), track));
    QCOMPARE(picture.at(item, {30, 30}), QColor(Qt::black));
}

void tst_SmallCharts::halvesTheRingUpright()
{
    Picture picture(
        u"RingGauge { objectName: \"it\"; x: 50; y: 50; width: 180; height: 180; color: \"#32d74b\"; fraction: 0.5 }"_s);
    const QImage image = picture.grab();
    const auto leftmost = [&image](int top, int bottom) {
        for (int x = 0; x < image.width(); ++x) {
            for (int y = top; y < bottom; ++y) {
                if (isLike(image.pixelColor(x, y), Color::green(), 30)) {
                    return x;
                }
            }
        }
        return -1;
    };
    QVERIFY(leftmost(50, 140) > 130);
    // A ring that is turned by one degree has its ends three points apart.
    QVERIFY(std::abs(leftmost(50, 140) - leftmost(140, 230)) <= 1);
}

void tst_SmallCharts::isAsThickAsTold()
{
    for (const int stroke : {4, 8}) {
        Picture picture(ring(u"fraction: 1; strokeWidth: %1"_s.arg(stroke)));
        const QImage image = picture.grab();
        int thick = 0;
        for (int x = 50; x < 80; ++x) {
            thick += isLike(image.pixelColor(x, 80), Color::green(), 60) ? 1 : 0;
        }
        QCOMPARE(thick, stroke);
    }
}

void tst_SmallCharts::fillsTheRingToItsFraction_data()
{
    QTest::addColumn<QString>("fraction");
    QTest::addColumn<int>("degrees");
    QTest::newRow("nothing") << u"0"_s << 0;
    QTest::newRow("a half") << u"0.5"_s << 180;
    QTest::newRow("most") << u"0.92"_s << 331;
    QTest::newRow("all") << u"1"_s << 360;
    QTest::newRow("more than all") << u"7"_s << 360;
    QTest::newRow("less than nothing") << u"-1"_s << 0;
    QTest::newRow("no number") << u"NaN"_s << 0;
    QTest::newRow("infinitely much") << u"Infinity"_s << 360;
}

void tst_SmallCharts::fillsTheRingToItsFraction()
{
    QFETCH(QString, fraction);
    QFETCH(int, degrees);
    Picture picture(ring(u"fraction: %1"_s.arg(fraction)));
    const int filled = degreesOf(picture, Color::green(), 4);
    // The round ends reach over by half a stroke each.
    QVERIFY2(std::abs(filled - degrees) <= 10, qPrintable(QString::number(filled)));
    QVERIFY(degrees > 0 || filled == 0);
    const int rest = degreesOf(picture, track, 4);
    QVERIFY2(std::abs(rest - (360 - degrees)) <= 14, qPrintable(QString::number(rest)));
}

void tst_SmallCharts::opensTheCompactGaugeAtTheBottom()
{
    Picture picture(
        u"CompactGauge { objectName: \"it\"; value: 100; maximum: 100; text: \"100\"; color: \"#32d74b\" }"_s);
    const QQuickItem *item = picture.item();
    QCOMPARE(item->width(), 58.0);
    QCOMPARE(item->height(), 58.0);
    QCOMPARE(picture.at(item, onRing(58, 5, 90)), QColor(Qt::black));
    QCOMPARE(picture.at(item, onRing(58, 5, 60)), QColor(Qt::black));
    QCOMPARE(picture.at(item, onRing(58, 5, 120)), QColor(Qt::black));
    for (const double degrees : {140.0, 180.0, 270.0, 0.0, 40.0}) {
        QVERIFY(isLike(picture.at(item, onRing(58, 5, degrees)), Color::green()));
    }
    QCOMPARE(picture.labels(item), QStringList(u"100"_s));
    const QQuickItem *label = picture.all(u"Label"_s, item).first();
    QVERIFY(label->width() < 58 - 2 * 5);
    QVERIFY(std::abs(label->x() + label->width() / 2 - 29) <= 0.5);
}

void tst_SmallCharts::fillsTheCompactGaugeToItsPartOfTheMaximum_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<int>("degrees");
    QTest::newRow("power") << 320.0 << 450.0 << 192;
    QTest::newRow("clock") << 2.1 << 3.0 << 189;
    QTest::newRow("beyond") << 5.0 << 3.0 << 270;
    QTest::newRow("of nothing") << 0.0 << 0.0 << 0;
}

void tst_SmallCharts::fillsTheCompactGaugeToItsPartOfTheMaximum()
{
    QFETCH(double, value);
    QFETCH(double, maximum);
    QFETCH(int, degrees);
    Picture picture(
        u"CompactGauge { objectName: \"it\"; value: %1; maximum: %2; color: \"#32d74b\" }"_s.arg(value).arg(maximum));
    const int filled = degreesOf(picture, Color::green(), 5);
    QVERIFY2(std::abs(filled - degrees) <= 14, qPrintable(QString::number(filled)));
}

void tst_SmallCharts::isPaintedOnlyWhenSomethingChanged()
{
    Picture picture(u""_s);
    CountedRing ring(picture.view.rootObject());
    ring.setFraction(0.5);
    picture.grab();
    QCOMPARE(ring.paintings, 1);
    ring.setFraction(0.5);
    ring.setColor(Qt::white);
    ring.setStrokeWidth(4);
    ring.setX(20);
    picture.grab();
    QCOMPARE(ring.paintings, 1);
    ring.setFraction(0.51);
    picture.grab();
    QCOMPARE(ring.paintings, 2);
}

void tst_SmallCharts::drawsTheSparklineThroughItsPoints()
{
    Picture picture(u"Sparkline { objectName: \"it\"; x: 50; y: 50; width: 280; height: 30\n"
                    "points: [Qt.point(0, 0.5), Qt.point(0.5, 0.2), Qt.point(1, 0.8)] }"_s);
    const QQuickItem *item = picture.item();
    const auto isCyan = [&](double x, double y) { return isLike(picture.at(item, {x, y}), Color::cyan(), 70); };
    QVERIFY(isCyan(0.5, 15));
    QVERIFY(isCyan(140, 6));
    QVERIFY(isCyan(210, 15));
    QVERIFY(isCyan(279, 23.8));
    QVERIFY(!isCyan(140, 15));
    // One and a half points of it, however they fall on pixels.
    const QImage image = picture.grab();
    double inked = 0;
    for (int y = 50; y < 80; ++y) {
        inked += image.pixelColor(50 + 70, y).blue() / double(Color::cyan().blue());
    }
    QVERIFY2(inked > 1.3 && inked < 1.7, qPrintable(QString::number(inked)));
}

void tst_SmallCharts::passesOverPointsThatAreNoNumbers()
{
    Picture picture(
        u"Sparkline { objectName: \"it\"; width: 100; height: 40; points: [Qt.point(0, 0.5), Qt.point(0.3, NaN), "
        "Qt.point(Infinity, 0), Qt.point(1, 0.5)] }"_s);
    QVERIFY(isLike(picture.at(picture.item(), {30, 20}), Color::cyan(), 80));
}

void tst_SmallCharts::drawsBarsOfTheStripAtTheirPlaces()
{
    // 836 points: twenty bars of 38 and nineteen gaps of 4.
    Picture picture(
        u"StripBars { objectName: \"it\"; x: -18; y: 100; width: 836; height: 200; barWidth: 38; radius: 0; "
        "heights: [1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1] }"_s);
    const QImage image = picture.grab();
    for (int i = 1; i < 19; ++i) {
        const int left = -18 + i * 42;
        QCOMPARE(image.pixelColor(left - 1, 200), QColor(Qt::black));
        QCOMPARE(image.pixelColor(left, 200), QColor(Qt::white));
        QCOMPARE(image.pixelColor(left + 37, 200), QColor(Qt::white));
        QCOMPARE(image.pixelColor(left + 38, 200), QColor(Qt::black));
    }
}

void tst_SmallCharts::isAsHighAsToldAndNeverHigher()
{
    Picture picture(u"StripBars { objectName: \"it\"; x: 100; y: 100; width: 140; height: 200; barWidth: 20\n"
                    "heights: [0.9, 0.25, 0, NaN, -1, 7] }"_s);
    const QQuickItem *bars = picture.item();
    const QList<double> heights{180, 50, 0, 0, 0, 200};
    for (int i = 0; i < heights.size(); ++i) {
        const double x = 10 + i * 24.0;
        if (heights[i] > 0) {
            QCOMPARE(picture.at(bars, {x, 200 - heights[i] + 1}), QColor(Qt::white));
            QCOMPARE(picture.at(bars, {x, 199}), QColor(Qt::white));
        }
        QCOMPARE(picture.at(bars, {x, 200 - heights[i] - 1}), QColor(Qt::black));
    }
}

void tst_SmallCharts::fadesTheBarsDownward()
{
    Picture picture(u"StripBars { objectName: \"it\"; x: 100; y: 100; width: 44; height: 200; barWidth: 20\n"
                    "topColor: \"#1affffff\"; bottomColor: \"#0dffffff\"; heights: [1, 0.3] }"_s);
    const QQuickItem *bars = picture.item();
    // White at a tenth above, at half of that below, on black.
    QVERIFY(std::abs(picture.at(bars, {10, 1}).red() - 26) <= 2);
    QVERIFY(std::abs(picture.at(bars, {10, 100}).red() - 19) <= 2);
    QVERIFY(std::abs(picture.at(bars, {10, 198}).red() - 13) <= 2);
    // A shorter bar has the whole range too.
    QVERIFY(std::abs(picture.at(bars, {10 + 24, 142}).red() - 26) <= 2);
    // Corners are round.
    QVERIFY(picture.at(bars, {0.5, 0.5}).red() < 12);
}

QTEST_MAIN(tst_SmallCharts)
#include "tst_SmallCharts.moc"
