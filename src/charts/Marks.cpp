#include "charts/Marks.h"

#include "app/theme/Theme.h"

#include <QFontMetricsF>

#include <algorithm>

namespace quillmere {

namespace {

QList<ChartTick> ticksOf(const AxisScale &scale)
{
    QList<ChartTick> ticks;
    for (const double tick : scale.ticks()) {
        ticks.append({scale.place(tick), scale.label(tick), true});
    }
    return ticks;
}

double widest(const QList<ChartTick> &ticks)
{
    const QFontMetricsF metrics(Marks::labelFont());
    double width = 0;
    for (const ChartTick &tick : ticks) {
        width = std::max(width, metrics.horizontalAdvance(tick.text));
    }
    return width;
}

} // namespace

Marks::Marks(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

QFont Marks::labelFont()
{
    return Theme::system(10);
}

double Marks::yLabelWidth() const
{
    return widest(m_yTicks);
}

QPointF Marks::placed(QPointF point) const
{
    const QRectF area = plot();
    return {area.left() + m_xScale.place(point.x()) * area.width(),
        area.bottom() - m_yScale.place(point.y()) * area.height()};
}

void Marks::takeData()
{
    if (!isComponentComplete()) {
        return;
    }
    layOutAxes();
    if (const QString summary = describe(); summary != m_summary) {
        m_summary = summary;
        emit summaryChanged();
    }
    update();
}

void Marks::componentComplete()
{
    QQuickPaintedItem::componentComplete();
    takeData();
}

void Marks::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    if (isComponentComplete() && newGeometry.size() != oldGeometry.size()) {
        layOutAxes();
    }
}

void Marks::layOutAxes()
{
    // As many labels as stand well apart.
    constexpr double leastHeight = 36;
    constexpr double leastWidth = 24;
    constexpr int most = 8;

    const int ySteps = std::clamp(int(plot().height() / leastHeight), 1, most);
    m_yScale = AxisScale(yRange(), ySteps, AxisScale::Ends::AtTicks);
    if (const QList<ChartTick> ticks = ticksOf(m_yScale); ticks != m_yTicks) {
        m_yTicks = ticks;
        emit yTicksChanged();
    }

    // Not before now: other labels beside the Y axis leave another width.
    const double width = plot().width();
    const ValueRange range = xRange();
    QList<ChartTick> ticks = categories();
    if (ticks.isEmpty()) {
        // Fewer steps until no label touches the next.
        for (int steps = most; steps > 0; --steps) {
            m_xScale = AxisScale(range, steps, xEnds());
            ticks = ticksOf(m_xScale);
            const double distance = ticks.size() < 2 ? width : (ticks[1].place - ticks[0].place) * width;
            if (distance >= widest(ticks) + leastWidth) {
                break;
            }
        }
    } else {
        m_xScale = AxisScale(range, most, AxisScale::Ends::AtValues);
    }
    if (ticks != m_xTicks) {
        m_xTicks = ticks;
        emit xTicksChanged();
    }
}

} // namespace quillmere
