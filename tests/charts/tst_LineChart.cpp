// What a line chart draws, pixel by pixel, for what it is given.

#include "app/theme/Color.h"
#include "charts/DenseLine.h"
#include "charts/LineMarks.h"
#include "charts/Picture.h"

#include <QAccessible>
#include <QPainter>
#include <QSignalSpy>

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;

class tst_LineChart : public QObject {
    Q_OBJECT

private slots:
    void goesThroughItsPoints_data();
    void goesThroughItsPoints();
    void drawsEachSeriesInItsColor();
    void joinsPointsByStraightLines();
    void curvesAsCatmullAndRomDo();
    void takesPointsAtOnePlaceForOne();
    void startsAndEndsAtTheEdgesOfItsPlot();
    void drawsNothingOutsideOfItsPlot();
    void leavesAGapAtWhatIsNoNumber();
    void drawsADotForALonePoint();
    void isBlankWithoutPoints();
    void bearsAnyNumbers_data();
    void bearsAnyNumbers();
    void labelsItsAxes();
    void hidesTheXAxis();
    void drawsGridLinesOfOnePixel();
    void keepsLabelsApartAndInsideAtAnySize();
    void followsItsPoints();
    void isPaintedOnlyWhenSomethingChanged();
    void keepsItsLabelsWhileOnlyTheLinesMove();
    void drawsManyPointsAsFaithfully();
    void drawsManyPointsAsAPainterWould();
    void drawsManyPointsThatTurnBack();
    void forgetsASeriesThatIsGone();
    void speaksItsData();
};

namespace {

// Four points on an axis from 0 to 3 and one from 0 to 1.
const auto zigzag = u"LineSeries { name: \"Zigzag\"; color: \"#32d74b\"\n"
                    "points: [Qt.point(0, 0), Qt.point(1, 1), Qt.point(2, 0.5), Qt.point(3, 0.8)] }"_s;

QString chart(const QString &content, const QString &more = {})
{
    return u"LineChart { objectName: \"it\"; x: 100; y: 100; width: 400; height: 300\n%1\n%2 }"_s.arg(more, content);
}

LineSeries *seriesOf(const Picture &picture)
{
    QQmlListReference list(picture.item(), "series");
    return qobject_cast<LineSeries *>(list.at(0));
}

QQuickItem *plotOf(const QQuickItem *chart)
{
    return chart->property("plot").value<QQuickItem *>();
}

// A point of the plot, told by fractions from its lower left corner.
QPointF inPlot(const QQuickItem *plot, double x, double y)
{
    return {x * plot->width(), (1 - y) * plot->height()};
}

QRectF placeOf(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

// The places of the brightest pixels of a kind in a column of the window.
QList<int> rowsOf(const QImage &image, int x, bool (*is)(const QColor &))
{
    QList<int> rows;
    for (int y = 0; y < image.height(); ++y) {
        if (is(image.pixelColor(x, y))) {
            rows.append(y);
        }
    }
    return rows;
}

bool isGreen(const QColor &color)
{
    return isLike(color, Color::green(), 60);
}

// The spline by its definition: straight lines between neighbours, and between these lines in turn, by the knots' times.
QPointF splineAt(const QPolygonF &p, double u)
{
    const auto next = [](double time, QPointF from, QPointF to) {
        return time + std::sqrt(std::hypot(to.x() - from.x(), to.y() - from.y()));
    };
    const double t0 = 0;
    const double t1 = next(t0, p[0], p[1]);
    const double t2 = next(t1, p[1], p[2]);
    const double t3 = next(t2, p[2], p[3]);
    const double t = t1 + u * (t2 - t1);
    const auto between = [t](double from, double to, QPointF a, QPointF b) {
        return a * ((to - t) / (to - from)) + b * ((t - from) / (to - from));
    };
    const QPointF a1 = between(t0, t1, p[0], p[1]);
    const QPointF a2 = between(t1, t2, p[1], p[2]);
    const QPointF a3 = between(t2, t3, p[2], p[3]);
    return between(t1, t2, between(t0, t2, a1, a2), between(t1, t3, a2, a3));
}

// Counts its paintings.
class CountedMarks : public LineMarks {
public:
    using LineMarks::LineMarks;
    void paint(QPainter *painter) override
    {
        ++paintings;
        LineMarks::paint(painter);
    }
    int paintings = 0;
};

} // namespace

void tst_LineChart::goesThroughItsPoints_data()
{
    QTest::addColumn<QString>("more");
    QTest::newRow("straight") << u""_s;
    QTest::newRow("smoothed") << u"smoothed: true"_s;
}

void tst_LineChart::goesThroughItsPoints()
{
    QFETCH(QString, more);
    Picture picture(chart(zigzag, more));
    const QQuickItem *plot = plotOf(picture.item());
    for (const QPointF point : {QPointF(0, 0), QPointF(1, 1), QPointF(2, 0.5), QPointF(3, 0.8)}) {
        QVERIFY(isGreen(picture.at(plot, inPlot(plot, point.x() / 3, point.y()))));
    }
    QVERIFY(!isGreen(picture.at(plot, inPlot(plot, 1 / 3.0, 0.5))));
}

void tst_LineChart::drawsEachSeriesInItsColor()
{
    Picture picture(chart(u"LineSeries { color: \"red\"; points: [Qt.point(0, 0), Qt.point(1, 0)] }\n"
                          "LineSeries { color: \"blue\"; points: [Qt.point(0, 1), Qt.point(1, 1)] }"_s));
    const QQuickItem *plot = plotOf(picture.item());
    QVERIFY(isLike(picture.at(plot, inPlot(plot, 0.4, 0)), Qt::red));
    QVERIFY(isLike(picture.at(plot, inPlot(plot, 0.4, 1)), Qt::blue));
}

void tst_LineChart::joinsPointsByStraightLines()
{
    Picture picture(chart(zigzag));
    const QQuickItem *plot = plotOf(picture.item());
    for (const double part : {0.1, 0.25, 0.5, 0.8}) {
        QVERIFY(isGreen(picture.at(plot, inPlot(plot, part / 3, part))));
    }
}

void tst_LineChart::curvesAsCatmullAndRomDo()
{
    const QPolygonF knots({{0, 100}, {40, 20}, {55, 90}, {160, 60}, {170, 0}});
    const QPainterPath path = smoothPath(knots);
    QCOMPARE(path.elementCount(), 1 + 3 * 4);
    for (qsizetype i = 0; i < knots.size(); ++i) {
        QCOMPARE(QPointF(path.elementAt(int(i) * 3)), knots[i]);
    }
    // The two inner spans have both of their neighbours.
    for (int span = 1; span <= 2; ++span) {
        QPainterPath piece{QPointF(path.elementAt(span * 3))};
        piece.cubicTo(path.elementAt(span * 3 + 1), path.elementAt(span * 3 + 2), path.elementAt(span * 3 + 3));
        for (const double u : {0.0, 0.1, 0.35, 0.5, 0.75, 1.0}) {
            const QPointF off = piece.pointAtPercent(u) - splineAt(knots.mid(span - 1, 4), u);
            QVERIFY2(std::hypot(off.x(), off.y()) < 1e-6, qPrintable(u"span %1 at %2"_s.arg(span).arg(u)));
        }
    }
}

void tst_LineChart::takesPointsAtOnePlaceForOne()
{
    const QPainterPath path = smoothPath({{{0, 0}, {10, 10}, {10, 10}, {10, 10}, {20, 0}}});
    QCOMPARE(path.elementCount(), 1 + 3 * 2);
    for (int i = 0; i < path.elementCount(); ++i) {
        QVERIFY(std::isfinite(path.elementAt(i).x) && std::isfinite(path.elementAt(i).y));
    }
    QVERIFY(smoothPath({}).isEmpty());
}

void tst_LineChart::startsAndEndsAtTheEdgesOfItsPlot()
{
    Picture picture(
        chart(u"LineSeries { color: \"red\"; points: [Qt.point(7, 0), Qt.point(31, 0), Qt.point(31, 2)] }"_s));
    const QQuickItem *plot = plotOf(picture.item());
    QVERIFY(isLike(picture.at(plot, {0.5, plot->height()}), Qt::red));
    QVERIFY(isLike(picture.at(plot, {plot->width() - 0.5, plot->height() / 2}), Qt::red));
    // A line along an edge has its whole width.
    QVERIFY(isLike(picture.at(plot, {plot->width() / 2, plot->height() + 0.5}), Qt::red));
    QVERIFY(isLike(picture.at(plot, {plot->width() / 2, plot->height() - 0.5}), Qt::red));
}

void tst_LineChart::drawsNothingOutsideOfItsPlot()
{
    // Steep corners, beyond which the curve swings.
    Picture picture(
        chart(u"smoothed: true\nLineSeries { color: \"#32d74b\"\n"
              "points: [Qt.point(0, 0), Qt.point(10, 0), Qt.point(11, 1), Qt.point(12, 0), Qt.point(13, 1), "
              "Qt.point(30, 1), Qt.point(31, 0)] }"_s));
    const QRectF plot = placeOf(plotOf(picture.item()));
    const QImage image = picture.grab();
    int inside = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.green() > color.red() + 20) {
                ++inside;
                QVERIFY(plot.adjusted(-4, -4, 4, 4).contains(x + 0.5, y + 0.5));
            }
        }
    }
    QVERIFY(inside > 500);
}

void tst_LineChart::leavesAGapAtWhatIsNoNumber()
{
    Picture picture(
        chart(u"LineSeries { color: \"#32d74b\"; points: [Qt.point(0, 1), Qt.point(1, 1), Qt.point(2, NaN), "
              "Qt.point(3, Infinity), Qt.point(4, 1), Qt.point(5, 0)] }"_s));
    const QQuickItem *plot = plotOf(picture.item());
    QVERIFY(isGreen(picture.at(plot, inPlot(plot, 0.1, 1))));
    QVERIFY(!isGreen(picture.at(plot, inPlot(plot, 0.4, 1))));
    QVERIFY(!isGreen(picture.at(plot, inPlot(plot, 0.7, 1))));
    QVERIFY(isGreen(picture.at(plot, inPlot(plot, 0.9, 0.5))));
}

void tst_LineChart::drawsADotForALonePoint()
{
    Picture picture(chart(u"LineSeries { color: \"#32d74b\"; points: [Qt.point(1420, 0.5)] }"_s));
    const QImage image = picture.grab();
    const QRectF plot = placeOf(plotOf(picture.item()));
    QList<int> columns;
    for (int x = 0; x < image.width(); ++x) {
        if (!rowsOf(image, x, isGreen).isEmpty()) {
            columns.append(x);
        }
    }
    QVERIFY(columns.size() >= 3 && columns.size() <= 6);
    QVERIFY(std::abs(columns.first() - plot.center().x()) < 6);
}

void tst_LineChart::isBlankWithoutPoints()
{
    Picture picture(chart(u"LineSeries { color: \"#32d74b\" }"_s, u"smoothed: true; showsXAxis: false"_s));
    const QImage image = picture.grab();
    QImage blank(image.size(), image.format());
    blank.fill(Qt::black);
    QCOMPARE(image, blank);
    QCOMPARE(picture.labels(picture.item()), QStringList());
}

void tst_LineChart::bearsAnyNumbers_data()
{
    QTest::addColumn<QList<QPointF>>("points");
    QTest::newRow("equal") << QList<QPointF>{{0, 5}, {1, 5}, {2, 5}};
    QTest::newRow("zeros") << QList<QPointF>{{0, 0}, {1, 0}};
    QTest::newRow("equal in X") << QList<QPointF>{{3, 0}, {3, 1}};
    QTest::newRow("huge") << QList<QPointF>{{0, -1.7e308}, {1, 1.7e308}};
    QTest::newRow("tiny") << QList<QPointF>{{0, 1e-310}, {1, 3e-310}};
    QTest::newRow("negative") << QList<QPointF>{{-20, -3}, {-10, -4}};
    QTest::newRow("small changes") << QList<QPointF>{{0, 1e12}, {1, 1e12 + 0.01}};
    QTest::newRow("huge steps") << QList<QPointF>{{-1.7e308, 0}, {1.7e308, 1}};
    QTest::newRow("not finite") << QList<QPointF>{{qQNaN(), 1}, {0, qInf()}, {1, 2}, {2, 3}, {qInf(), -qInf()}};
    QTest::newRow("backwards") << QList<QPointF>{{5, 1}, {3, 2}, {4, 0}};
}

void tst_LineChart::bearsAnyNumbers()
{
    QFETCH(QList<QPointF>, points);
    for (const bool smoothed : {false, true}) {
        Picture picture(chart(u"LineSeries { color: \"#32d74b\" }"_s, smoothed ? u"smoothed: true"_s : QString()));
        seriesOf(picture)->setPoints(points);
        const QImage image = picture.grab();
        int green = 0;
        for (int x = 0; x < image.width(); ++x) {
            green += int(rowsOf(image, x, isGreen).size());
        }
        QVERIFY(green > 100);
        QStringList said = picture.labels(picture.item());
        QVERIFY(said.size() >= 2);
        said.append(picture.item()->property("summary").toString());
        for (const QString &text : said) {
            QVERIFY2(!text.contains(u"nan"_s) && !text.contains(u"inf"_s), qPrintable(text));
        }
    }
}

void tst_LineChart::labelsItsAxes()
{
    Picture picture(chart(zigzag));
    QStringList labels = picture.labels(picture.item());
    labels.sort();
    QCOMPARE(
        labels, QStringList({u"0"_s, u"0"_s, u"0.2"_s, u"0.4"_s, u"0.6"_s, u"0.8"_s, u"1"_s, u"1"_s, u"2"_s, u"3"_s}));
    const QRectF plot = placeOf(plotOf(picture.item()));
    for (const QQuickItem *label : picture.all(u"Label"_s, picture.item())) {
        QCOMPARE(label->property("color").value<QColor>(), Color::gray());
        // Beside the leading edge, or below.
        const QRectF place = placeOf(label);
        QVERIFY(place.right() < plot.left() || place.top() > plot.bottom());
    }
}

void tst_LineChart::hidesTheXAxis()
{
    Picture picture(chart(zigzag, u"showsXAxis: false"_s));
    const QRectF plot = placeOf(plotOf(picture.item()));
    const auto labels = picture.all(u"Label"_s, picture.item());
    QCOMPARE(labels.size(), 6);
    for (const QQuickItem *label : labels) {
        QVERIFY(placeOf(label).right() < plot.left());
    }
    // Between two lines of the Y axis nothing but the curve is drawn.
    const QImage image = picture.grab();
    const int y = int(plot.top() + plot.height() * 0.07);
    for (int x = int(plot.left()) + 150; x < plot.right(); ++x) {
        QCOMPARE(image.pixelColor(x, y), QColor(Qt::black));
    }
}

void tst_LineChart::drawsGridLinesOfOnePixel()
{
    // On half a pixel too a line is a whole one.
    Picture picture(chart(zigzag, u"showsXAxis: false"_s));
    picture.item()->setPosition({100.5, 100.5});
    const QRectF plot = placeOf(plotOf(picture.item()));
    const QImage image = picture.grab();
    const QList<int> rows = rowsOf(image, int(plot.left() + plot.width() * 0.15),
        [](const QColor &color) { return color.lightness() > 5 && isDark(color); });
    // The line goes across; of the six lines one is beneath it at most.
    QVERIFY(rows.size() >= 5 && rows.size() <= 8);
    const QColor line = Color::faded(Color::gray(), 0.2);
    int whole = 0;
    for (const int row : rows) {
        const QColor color = image.pixelColor(int(plot.left() + plot.width() * 0.15), row);
        whole +=
            isLike(color, QColor(int(line.red() * 0.2), int(line.green() * 0.2), int(line.blue() * 0.2)), 3) ? 1 : 0;
    }
    QVERIFY(whole >= 5);
}

void tst_LineChart::keepsLabelsApartAndInsideAtAnySize()
{
    Picture picture(chart(zigzag));
    QQuickItem *item = picture.item();
    const QList<QList<QPointF>> data{{{0, 0}, {19, 1.15}}, {{1000000, 0.000211}, {9000000, 0.000215}},
        {{-0.001, -1e9}, {0.001, 1e9}}, {{0, 999999999}, {30, 1000000001}}};
    for (const QList<QPointF> &points : data) {
        seriesOf(picture)->setPoints(points);
        for (int width = 10; width < 700; width += 23) {
            for (int height = 5; height < 450; height += 29) {
                item->setSize(QSizeF(width, height));
                const auto labels = picture.all(u"Label"_s, item);
                QList<QRectF> places;
                for (const QQuickItem *label : labels) {
                    const QRectF place = placeOf(label);
                    QVERIFY2(place.top() >= 99 && place.bottom() <= 101 + height,
                        qPrintable(
                            u"%1 is cut at %2 by %3"_s.arg(label->property("text").toString()).arg(width).arg(height)));
                    for (const QRectF &other : std::as_const(places)) {
                        QVERIFY2(!place.intersects(other),
                            qPrintable(u"%1 touches another at %2 by %3"_s.arg(label->property("text").toString())
                                           .arg(width)
                                           .arg(height)));
                    }
                    places.append(place);
                }
            }
        }
    }
}

void tst_LineChart::followsItsPoints()
{
    Picture picture(chart(zigzag, u"showsXAxis: false"_s));
    const QQuickItem *plot = plotOf(picture.item());
    QVERIFY(!isGreen(picture.at(plot, inPlot(plot, 0.5, 0.25))));
    // What was at 1 leaves on the left, and the axis follows.
    seriesOf(picture)->setPoints({{10, 100}, {20, 200}, {30, 500}});
    QCOMPARE(picture.labels(picture.item()).last(), u"500"_s);
    QVERIFY(isGreen(picture.at(plot, inPlot(plot, 0.5, 0.25))));
}

void tst_LineChart::isPaintedOnlyWhenSomethingChanged()
{
    Picture picture(u""_s);
    CountedMarks marks(picture.view.rootObject());
    LineSeries series;
    series.setPoints({{0, 0}, {1, 1}, {2, 0}});
    marks.setSize(QSizeF(200, 100));
    marks.append(&series);
    picture.grab();
    QCOMPARE(marks.paintings, 1);
    picture.grab();
    QCOMPARE(marks.paintings, 1);

    series.setPoints({{0, 0}, {1, 1}, {2, 0}});
    series.setColor(Qt::white);
    marks.setLineWidth(2);
    marks.setSmoothed(false);
    marks.setX(50);
    picture.grab();
    QCOMPARE(marks.paintings, 1);

    series.setPoints({{0, 0}, {1, 1}, {2, 1e-9}});
    picture.grab();
    QCOMPARE(marks.paintings, 2);
    marks.setSmoothed(true);
    picture.grab();
    QCOMPARE(marks.paintings, 3);
    series.setColor(Qt::red);
    picture.grab();
    QCOMPARE(marks.paintings, 4);
    marks.setSize(QSizeF(201, 100));
    picture.grab();
    QCOMPARE(marks.paintings, 5);
}

void tst_LineChart::keepsItsLabelsWhileOnlyTheLinesMove()
{
    Picture picture(chart(zigzag, u"showsXAxis: false"_s));
    const auto before = picture.all(u"Label"_s, picture.item());
    QSignalSpy ticks(picture.item()->property("marks").value<QObject *>(), SIGNAL(yTicksChanged()));
    seriesOf(picture)->setPoints({{1, 0}, {2, 0.9}, {3, 0.5}, {4, 1}});
    picture.grab();
    QCOMPARE(ticks.count(), 0);
    QCOMPARE(picture.all(u"Label"_s, picture.item()), before);
    seriesOf(picture)->setPoints({{1, 0}, {2, 90}});
    QCOMPARE(ticks.count(), 1);
}

// Points that are closer than pixels are drawn by other means, which must not be seen.
void tst_LineChart::drawsManyPointsAsFaithfully()
{
    QList<QPointF> few;
    QList<QPointF> many;
    for (int i = 0; i <= 2000; ++i) {
        const QPointF point(i, std::sin(i / 200.0));
        many.append(point);
        if (i % 20 == 0) {
            few.append(point);
        }
    }
    Picture picture(chart(u"LineSeries { color: \"#32d74b\" }"_s));
    seriesOf(picture)->setPoints(few);
    const QImage expected = picture.grab();
    seriesOf(picture)->setPoints(many);
    const QImage image = picture.grab();
    int green = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            green += isGreen(image.pixelColor(x, y)) ? 1 : 0;
            QVERIFY2(
                isLike(image.pixelColor(x, y), expected.pixelColor(x, y), 70), qPrintable(u"%1, %2"_s.arg(x).arg(y)));
        }
    }
    QVERIFY(green > 700);
}

// A slow wave with noise upon it, and a steep spike.
void tst_LineChart::drawsManyPointsAsAPainterWould()
{
    constexpr QSize size(300, 120);
    for (const double width : {1.0, 2.0, 3.5}) {
        QPolygonF line;
        for (int i = 0; i <= 1000; ++i) {
            const double noise = i % 7 * 1.5;
            line.append({10 + i * 0.28, i == 500 ? 5 : 60 + 30 * std::sin(i / 80.0) + noise});
        }
        const QColor color(50, 215, 75, 200);
        // Larger and reduced again, since a painter is not exact in strokes as thin as these.
        QImage large(size * 8, QImage::Format_ARGB32_Premultiplied);
        large.fill(Qt::transparent);
        QPainter painter(&large);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(8, 8);
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(line);
        painter.end();
        const QImage expected = large.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);

        const QImage image = denseLine(line, width, color, size);

        double differences = 0;
        int drawn = 0;
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const int difference = std::abs(qAlpha(image.pixel(x, y)) - qAlpha(expected.pixel(x, y)));
                QVERIFY2(difference <= 25, qPrintable(u"%1, %2 by %3"_s.arg(x).arg(y).arg(difference)));
                differences += difference;
                drawn += qAlpha(expected.pixel(x, y)) > 0 ? 1 : 0;
            }
        }
        QVERIFY2(differences / drawn < 6, qPrintable(QString::number(differences / drawn)));
    }
}

void tst_LineChart::drawsManyPointsThatTurnBack()
{
    QList<QPointF> few;
    QList<QPointF> many;
    for (int i = 0; i <= 2000; ++i) {
        const double angle = i * std::numbers::pi / 1000;
        many.append({std::cos(angle), std::sin(angle)});
        if (i % 20 == 0) {
            few.append(many.last());
        }
    }
    Picture picture(chart(u"LineSeries { color: \"#32d74b\" }"_s));
    seriesOf(picture)->setPoints(few);
    const QImage expected = picture.grab();
    seriesOf(picture)->setPoints(many);
    const QImage image = picture.grab();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            QVERIFY2(
                isLike(image.pixelColor(x, y), expected.pixelColor(x, y), 70), qPrintable(u"%1, %2"_s.arg(x).arg(y)));
        }
    }
}

void tst_LineChart::forgetsASeriesThatIsGone()
{
    Picture picture(u""_s);
    LineMarks marks(picture.view.rootObject());
    marks.setSize(QSizeF(200, 100));
    LineSeries lasting;
    lasting.setPoints({{0, 0}, {1, 1}});
    {
        LineSeries passing;
        passing.setPoints({{0, 0}, {1, 1000}});
        marks.append(&passing);
        marks.append(&lasting);
        QCOMPARE(marks.yTicks().last().text, u"1000"_s);
    }
    QCOMPARE(marks.series(), QList<LineSeries *>{&lasting});
    QCOMPARE(marks.yTicks().last().text, u"1"_s);
    marks.clear();
    lasting.setPoints({{0, 0}, {1, 2}});
    QVERIFY(marks.yTicks().isEmpty());
}

void tst_LineChart::speaksItsData()
{
    Picture picture(chart(zigzag));
    const auto *spoken = QAccessible::queryAccessibleInterface(picture.item());
    QVERIFY(spoken);
    QCOMPARE(spoken->role(), QAccessible::Chart);
    QCOMPARE(spoken->text(QAccessible::Name), u"Zigzag from 0 to 1, last 0.8"_s);
    seriesOf(picture)->setPoints({});
    QCOMPARE(spoken->text(QAccessible::Name), u"No data"_s);
    picture.item()->setProperty("summary", u"The loss falls"_s);
    QCOMPARE(spoken->text(QAccessible::Name), u"The loss falls"_s);
}

QTEST_MAIN(tst_LineChart)
#include "tst_LineChart.moc"
