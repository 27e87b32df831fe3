#include "charts/LineMarks.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillmere {

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

ValueRange LineMarks::xRange() const
{
    ValueRange range;
    for (const LineSeries *series : m_series) {
        for (const QPointF point : series->points()) {
            range.include(point.x());
        }
    }
    return range;
}

ValueRange LineMarks::yRange() const
{
    ValueRange range;
    for (const LineSeries *series : m_series) {
        for (const QPointF point : series->points()) {
            range.include(point.y());
        }
    }
    return range;
}

QString LineMarks::describe() const
{
    return {};
}

void LineMarks::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    for (const LineSeries *series : std::as_const(m_series)) {
        painter->setPen(QPen(series->color(), m_lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        QPolygonF line;
        for (const QPointF point : series->points()) {
            line.append(placed(point));
        }
        painter->drawPolyline(line);
    }
}

} // namespace quillmere
