#include "charts/LineMarks.h"

#include "charts/DenseLine.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

bool isFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool runsFromLeftToRight(const QPolygonF &line)
{
    return std::is_sorted(line.cbegin(), line.cend(), [](QPointF a, QPointF b) { return a.x() < b.x(); });
}

} // namespace

QPainterPath smoothPath(const QPolygonF &points)
{
    QPolygonF knots;
    knots.reserve(points.size());
    for (const QPointF point : points) {
        if (knots.isEmpty() || point != knots.last()) {
            knots.append(point);
        }
    }
    QPainterPath path;
    if (knots.isEmpty()) {
        return path;
    }
    path.reserve(int(knots.size()) * 3);
    path.moveTo(knots.first());
    // Beyond either end stands that end once more.
    const qsizetype last = knots.size() - 1;
    const auto knot = [&](qsizetype i) { return knots[std::clamp<qsizetype>(i, 0, last)]; };
    // The times between knots are the square roots of their distances.
    const auto time = [&](qsizetype i) {
        const QPointF way = knot(i + 1) - knot(i);
        return std::sqrt(std::hypot(way.x(), way.y()));
    };
    double before = 0;
    double here = time(0);
    for (qsizetype i = 0; i < last; ++i) {
        const double after = time(i + 1);
        // The handle at a knot, on the side of a span that takes the time `near`; `far` is the time on its other side.
        const auto handle = [](QPointF at, QPointF ahead, QPointF behind, double near, double far) {
            if (far == 0) {
                return at;
            }
            const QPointF weighted =
                far * far * ahead - near * near * behind + (2 * far * far + 3 * far * near + near * near) * at;
            return weighted / (3 * far * (far + near));
        };
        path.cubicTo(handle(knot(i), knot(i + 1), knot(i - 1), here, before),
            handle(knot(i + 1), knot(i), knot(i + 2), here, after), knot(i + 1));
        before = here;
        here = after;
    }
    return path;
}

QQmlListProperty<LineSeries> LineMarks::seriesProperty()
{
    return {this, nullptr,
        [](QQmlListProperty<LineSeries> *list, LineSeries *series) {
            static_cast<LineMarks *>(list->object)->append(series);
        },
        [](QQmlListProperty<LineSeries> *list) { return static_cast<LineMarks *>(list->object)->m_series.size(); },
        [](QQmlListProperty<LineSeries> *list, qsizetype index) {
            return static_cast<LineMarks *>(list->object)->m_series.at(index);
        },
        [](QQmlListProperty<LineSeries> *list) { static_cast<LineMarks *>(list->object)->clear(); }};
}

void LineMarks::append(LineSeries *series)
{
    m_series.append(series);
    connect(series, &LineSeries::pointsChanged, this, &LineMarks::takeData);
    connect(series, &LineSeries::nameChanged, this, &LineMarks::takeData);
    connect(series, &LineSeries::colorChanged, this, [this] { update(); });
    connect(series, &QObject::destroyed, this, [this](QObject *gone) {
        m_series.removeAll(gone);
        takeData();
    });
    takeData();
    emit seriesChanged();
}

void LineMarks::clear()
{
    for (LineSeries *series : std::as_const(m_series)) {
        series->disconnect(this);
    }
    m_series.clear();
    takeData();
    emit seriesChanged();
}

void LineMarks::setSmoothed(bool smoothed)
{
    if (m_smoothed != smoothed) {
        m_smoothed = smoothed;
        update();
        emit smoothedChanged();
    }
}

void LineMarks::setLineWidth(double width)
{
    if (m_lineWidth != width) {
        m_lineWidth = width;
        update();
        emit lineWidthChanged();
    }
}

ValueRange LineMarks::rangeOf(double (*coordinate)(QPointF)) const
{
    ValueRange range;
    for (const LineSeries *series : m_series) {
        for (const QPointF point : series->points()) {
            if (isFinite(point)) {
                range.include(coordinate(point));
            }
        }
    }
    return range;
}

ValueRange LineMarks::xRange() const
{
    return rangeOf([](QPointF point) { return point.x(); });
}

ValueRange LineMarks::yRange() const
{
    return rangeOf([](QPointF point) { return point.y(); });
}

QString LineMarks::describe() const
{
    QStringList sentences;
    for (const LineSeries *series : m_series) {
        ValueRange range;
        double last = 0;
        for (const QPointF point : series->points()) {
            if (isFinite(point)) {
                range.include(point.y());
                last = point.y();
            }
        }
        if (range.isEmpty()) {
            continue;
        }
        const QString figures =
            tr("from %1 to %2, last %3").arg(spoken(range.least), spoken(range.greatest), spoken(last));
        sentences.append(series->name().isEmpty() ? figures : tr("%1 %2").arg(series->name(), figures));
    }
    return sentences.isEmpty() ? tr("No data") : sentences.join(u"; "_s);
}

void LineMarks::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    for (const LineSeries *series : std::as_const(m_series)) {
        QPen pen(series->color(), m_lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
        QPolygonF line;
        const auto draw = [&] {
            if (line.size() == 1) {
                // A point without neighbours is a dot.
                painter->setPen(Qt::NoPen);
                painter->setBrush(series->color());
                painter->drawEllipse(line.first(), m_lineWidth * 1.25, m_lineWidth * 1.25);
            } else if (double(line.size()) > plot().width() / 2 && runsFromLeftToRight(line)) {
                // So close that curves cannot be told from straight lines.
                const double scale = painter->combinedTransform().m11();
                QImage image = denseLine(QTransform::fromScale(scale, scale).map(line), m_lineWidth * scale,
                    series->color(), (boundingRect().size() * scale).toSize());
                image.setDevicePixelRatio(scale);
                painter->drawImage(QPointF(), image);
            } else if (m_smoothed) {
                painter->strokePath(smoothPath(line), pen);
            } else {
                painter->setPen(pen);
                painter->drawPolyline(line);
            }
            line.clear();
        };
        for (const QPointF point : series->points()) {
            if (isFinite(point)) {
                line.append(placed(point));
            } else {
                draw();
            }
        }
        draw();
    }
}

} // namespace quillmere
