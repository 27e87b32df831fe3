#include "charts/BarMarks.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillmere {

void BarMarks::setBars(const QList<ChartBar> &bars)
{
    if (m_bars != bars) {
        m_bars = bars;
        takeData();
        emit barsChanged();
    }
}

bool BarMarks::hasLabels() const
{
    return std::any_of(m_bars.begin(), m_bars.end(), [](const ChartBar &bar) { return !bar.label.isEmpty(); });
}

// Between neighbours on the axis of numbers: the least there is.
double BarMarks::distance() const
{
    std::vector<double> places;
    for (const ChartBar &bar : m_bars) {
        if (std::isfinite(bar.x)) {
            places.push_back(bar.x);
        }
    }
    std::sort(places.begin(), places.end());
    double least = 0;
    for (size_t i = 1; i < places.size(); ++i) {
        const double gap = places[i] - places[i - 1];
        if (gap > 0 && (least == 0 || gap < least)) {
            least = gap;
        }
    }
    return least == 0 ? 1 : least;
}

ValueRange BarMarks::xRange() const
{
    ValueRange range;
    if (hasLabels()) {
        range.include(0);
        range.include(double(m_bars.size()));
        return range;
    }
    const double half = distance() / 2;
    for (const ChartBar &bar : m_bars) {
        range.include(bar.x - half);
        range.include(bar.x + half);
    }
    return range;
}

ValueRange BarMarks::yRange() const
{
    ValueRange range;
    for (const ChartBar &bar : m_bars) {
        range.include(bar.value);
    }
    if (!range.isEmpty()) {
        range.include(0);
    }
    return range;
}

QList<ChartTick> BarMarks::categories() const
{
    QList<ChartTick> ticks;
    if (hasLabels()) {
        for (qsizetype i = 0; i < m_bars.size(); ++i) {
            ticks.append({(double(i) + 0.5) / double(m_bars.size()), m_bars[i].label, false});
        }
    }
    return ticks;
}

QString BarMarks::describe() const
{
    return {};
}

void BarMarks::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const bool labelled = hasLabels();
    const double band = labelled ? 1 : distance();
    for (qsizetype i = 0; i < m_bars.size(); ++i) {
        const ChartBar &bar = m_bars[i];
        const double x = labelled ? double(i) + 0.5 : bar.x;
        if (!std::isfinite(x) || !std::isfinite(bar.value)) {
            continue;
        }
        painter->setBrush(bar.color);
        painter->drawRect(QRectF(placed({x - band * 0.35, bar.value}), placed({x + band * 0.35, 0})));
    }
}

} // namespace quillmere
