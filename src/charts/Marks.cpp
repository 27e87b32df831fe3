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

// Between neighbours, as a part of the axis.
double distance(const QList<ChartTick> &ticks)
{
    return ticks.size() < 2 ? 1 : ticks[1].place - ticks[0].place;
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
    constexpr int most = 8;
    // In points. Labels beside an axis stand well apart from one another; where not even two find room there are none.
    constexpr double apart = 40;
    const double lineHeight = QFontMetricsF(labelFont()).height();

    const double height = plot().height();
    m_yScale = AxisScale(yRange(), std::clamp(int(height / apart), 1, most), AxisScale::Ends::AtTicks);
    QList<ChartTick> ticks = ticksOf(m_yScale);
    if (distance(ticks) * height < lineHeight) {
        ticks.clear();
    }
    tell(ticks, m_yTicks, &Marks::yTicksChanged);

    // Not before now: other labels beside the Y axis leave another width.
    const double width = plot().width();
    const double apartAcross = std::min(64.0, width / 4);
    const ValueRange range = xRange();
    ticks = categories();
    if (!ticks.isEmpty()) {
        m_xScale = AxisScale(range, most, AxisScale::Ends::AtValues);
    } else {
        // Fewer steps until no label touches the next, not even one at the edge, which moves inward by half its width.
        for (int steps = most; steps > 0; --steps) {
            m_xScale = AxisScale(range, steps, AxisScale::Ends::AtValues);
            ticks = ticksOf(m_xScale);
            if (distance(ticks) * width >= std::max(apartAcross, widest(ticks) * 1.5 + lineHeight)) {
                break;
            }
            ticks.clear();
        }
    }
    tell(ticks, m_xTicks, &Marks::xTicksChanged);
}

void Marks::tell(const QList<ChartTick> &ticks, QList<ChartTick> &told, void (Marks::*changed)())
{
    if (ticks != told) {
        told = ticks;
        emit(this->*changed)();
    }
}

} // namespace quillmere
