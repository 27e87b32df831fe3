#include "charts/BarMarks.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

ValueRange valuesOf(const QList<ChartBar> &bars)
{
    ValueRange range;
    for (const ChartBar &bar : bars) {
        range.include(bar.value);
    }
    return range;
}

} // namespace

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

double BarMarks::band() const
{
    if (hasLabels()) {
        return 1;
    }
    std::vector<double> places;
    for (const ChartBar &bar : m_bars) {
        if (std::isfinite(bar.x)) {
            places.push_back(bar.x);
        }
    }
    std::sort(places.begin(), places.end());
    // The least distance between two bars.
    double least = std::numeric_limits<double>::infinity();
    for (size_t i = 1; i < places.size(); ++i) {
        const double distance = places[i] - places[i - 1];
        least = distance > 0 ? std::min(least, distance) : least;
    }
    return std::isfinite(least) ? least : 1;
}

ValueRange BarMarks::xRange() const
{
    ValueRange range;
    if (hasLabels()) {
        range.include(0);
        range.include(double(m_bars.size()));
        return range;
    }
    const double half = band() / 2;
    for (const ChartBar &bar : m_bars) {
        range.include(bar.x - half);
        range.include(bar.x + half);
    }
    return range;
}

ValueRange BarMarks::yRange() const
{
    ValueRange range = valuesOf(m_bars);
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
    const ValueRange range = valuesOf(m_bars);
    if (range.isEmpty()) {
        return tr("No data");
    }
    if (!hasLabels()) {
        return tr("%1 values from %2 to %3").arg(m_bars.size()).arg(spoken(range.least), spoken(range.greatest));
    }
    QStringList words;
    for (const ChartBar &bar : m_bars) {
        if (std::isfinite(bar.value)) {
            words.append(tr("%1 %2").arg(bar.label, spoken(bar.value)));
        }
    }
    return words.join(u", "_s);
}

void BarMarks::paint(QPainter *painter)
{
    // Of its band, and in points.
    constexpr double part = 0.7;
    constexpr double partOfLabelled = 0.5;
    constexpr double widest = 72;
    constexpr double roundest = 3;

    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const double pixel = 1 / painter->transform().m11();
    const auto onPixel = [pixel](double place) { return std::round(place / pixel) * pixel; };
    const bool labelled = hasLabels();
    const double bandWidth = band() / (xScale().upper() - xScale().lower()) * plot().width();
    const double width = std::clamp(bandWidth * (labelled ? partOfLabelled : part), 1.0, widest);
    for (qsizetype i = 0; i < m_bars.size(); ++i) {
        const ChartBar &bar = m_bars[i];
        const double x = labelled ? double(i) + 0.5 : bar.x;
        if (!std::isfinite(x) || !std::isfinite(bar.value) || bar.value == 0) {
            continue;
        }
        const QPointF end = placed({x, bar.value});
        const double left = onPixel(end.x() - width / 2);
        const double right = std::max(left + pixel, onPixel(end.x() + width / 2));
        const double base = onPixel(placed({x, 0}).y());
        const double height = onPixel(end.y()) - base; // below the line of zeros positive
        const double radius = std::min({roundest, (right - left) / 4, std::abs(height)});
        // Only the end of a bar is round.
        QPainterPath outline(QPointF(left, base));
        const double shoulder = base + height - std::copysign(radius, height);
        outline.lineTo(left, shoulder);
        outline.quadTo(left, base + height, left + radius, base + height);
        outline.lineTo(right - radius, base + height);
        outline.quadTo(right, base + height, right, shoulder);
        outline.lineTo(right, base);
        painter->fillPath(outline, bar.color);
    }
}

} // namespace quillmere
