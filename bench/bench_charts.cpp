// How much processor time a chart of 2,000 points takes from new points to its picture (measuring them, laying out the axes,
// painting), beside what painting the same points as a bare polyline takes.
#include "Bench.h"

#include "app/theme/Theme.h"
#include "charts/LineMarks.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cmath>

using namespace quillmere;
using namespace quillmere::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int pointCount = 2000;
constexpr int rounds = 101;
constexpr double mostMilliseconds = 4;
constexpr QSize size(600, 200);

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

void measure(const QString &name, bool smoothed)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    LineMarks marks;
    marks.setSize(size);
    marks.setSmoothed(smoothed);
    LineSeries series;
    marks.append(&series);

    Samples floors;
    Samples updates;
    for (int turn = 0; turn < rounds; ++turn) {
        const QList<QPointF> points = pointsAt(turn);
        image.fill(Qt::transparent);
        floors.push_back(processorMillisecondsOf([&] {
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
        updates.push_back(processorMillisecondsOf([&] {
            series.setPoints(points);
            QPainter painter(&image);
            marks.paint(&painter);
        }));
    }
    print({name, "ms", updates, u"a bare polyline"_s, floors, atMost(mostMilliseconds)});
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    Theme::registerFaces();
    measure(u"chart of 2,000 points, straight"_s, false);
    measure(u"chart of 2,000 points, smoothed"_s, true);
    return exitCode();
}
