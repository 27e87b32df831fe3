// How long a chart of 2,000 points takes from new points to its picture (measuring them, laying out the axes, painting), beside
// what painting the same points as a bare polyline takes in the same run. Times differ from machine to machine, ratios hardly.
// The exit code is 1 when the chart takes more than 4 ms and more than a third of the latter.

#include "app/theme/Theme.h"
#include "charts/LineMarks.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

using namespace quillmere;

namespace {

constexpr int pointCount = 2000;
constexpr int rounds = 101;
constexpr double mostMilliseconds = 4;
constexpr double mostOfFloor = 1 / 3.0;
constexpr QSize size(600, 200);

double millisecondsOf(auto &&work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

double medianOf(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// A slow wave with a quick one upon it, another at each turn.
QList<QPointF> pointsAt(int turn)
{
    QList<QPointF> points;
    for (int i = 0; i < pointCount; ++i) {
        const double x = i + turn;
        points.append({x, std::sin(x / 100) + 0.2 * std::sin(x * 1.7)});
    }
    return points;
}

double measure(const char *name, bool smoothed)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    LineMarks marks;
    marks.setSize(size);
    marks.setSmoothed(smoothed);
    LineSeries series;
    marks.append(&series);

    std::vector<double> floors;
    std::vector<double> updates;
    for (int turn = 0; turn < rounds; ++turn) {
        const QList<QPointF> points = pointsAt(turn);
        image.fill(Qt::transparent);
        floors.push_back(millisecondsOf([&] {
            QPolygonF line;
            for (const QPointF point : points) {
                line.append({(point.x() - turn) * size.width() / pointCount, (1.2 - point.y()) / 2.4 * size.height()});
            }
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(Qt::white, marks.lineWidth(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPolyline(line);
        }));
        image.fill(Qt::transparent);
        updates.push_back(millisecondsOf([&] {
            series.setPoints(points);
            QPainter painter(&image);
            marks.paint(&painter);
        }));
    }
    const double floor = medianOf(floors);
    const double update = medianOf(updates);
    std::printf(
        "%s: %d points on %d by %d, median of %d rounds\n", name, pointCount, size.width(), size.height(), rounds);
    std::printf("  %-24s %7.2f ms\n  %-24s %7.2f ms  %.2f\n", "bare polyline", floor, "chart", update, update / floor);
    return update > mostMilliseconds ? update / floor : 0;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    Theme::registerFonts();
    const double straight = measure("Straight lines", false);
    const double smoothed = measure("Smoothed lines", true);
    return std::max(straight, smoothed) > mostOfFloor ? 1 : 0;
}
