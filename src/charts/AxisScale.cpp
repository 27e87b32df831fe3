#include "charts/AxisScale.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace quillmere {

namespace {

// Numbers beyond it are drawn as if they were it, so that no sum or difference of two leaves the range of a double.
constexpr double largest = 1e300;
// Below it there is too little left of a double's precision for ticks.
constexpr double smallestSpan = 1e-300;
// A span this small a part of the values is rounding: the ticks in it could not be told apart.
constexpr double smallestPart = 1e-12;

// The round step nearest to `span / steps`, by ratio.
double roundStep(double span, int steps)
{
    const double raw = span / std::max(1, steps);
    const double power = std::pow(10, std::floor(std::log10(raw)));
    const double lead = raw / power;
    return power * (lead < std::sqrt(2) ? 1 : lead < std::sqrt(10) ? 2 : lead < std::sqrt(50) ? 5 : 10);
}

} // namespace

void ValueRange::include(double value)
{
    if (std::isfinite(value)) {
        least = std::min(least, value);
        greatest = std::max(greatest, value);
    }
}

AxisScale::AxisScale(ValueRange range, int steps, Ends ends)
{
    if (range.isEmpty()) {
        return;
    }
    m_lower = std::clamp(range.least, -largest, largest);
    m_upper = std::clamp(range.greatest, -largest, largest);
    const double size = std::max(std::abs(m_lower), std::abs(m_upper));
    if (m_upper - m_lower < std::max(smallestSpan, size * smallestPart)) {
        // One value stands in the middle, with room around it of a size with it.
        const double room = size < smallestSpan ? 1 : size / 10;
        m_lower -= room;
        m_upper += room;
    }
    m_step = roundStep(m_upper - m_lower, steps);
    if (ends == Ends::AtTicks) {
        // An end that misses its tick by rounding alone is at it.
        constexpr double slack = 1e-9;
        m_lower = std::floor(m_lower / m_step + slack) * m_step;
        m_upper = std::ceil(m_upper / m_step - slack) * m_step;
    }
}

QList<double> AxisScale::ticks() const
{
    QList<double> ticks;
    if (isEmpty()) {
        return ticks;
    }
    constexpr double slack = 1e-9;
    const double first = std::ceil(m_lower / m_step - slack);
    const double last = std::floor(m_upper / m_step + slack);
    for (double i = first; i <= last; ++i) {
        ticks.append(i * m_step + 0.0);
    }
    return ticks;
}

QString AxisScale::label(double tick) const
{
    return QLocale::c().toString(tick, 'g', 6);
}

double AxisScale::place(double value) const
{
    return isEmpty() ? 0 : (std::clamp(value, -largest, largest) - m_lower) / (m_upper - m_lower);
}

} // namespace quillmere
