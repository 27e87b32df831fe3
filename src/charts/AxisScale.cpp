#include "charts/AxisScale.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

// Numbers beyond it are drawn as if they were it, so that no sum or difference of two leaves the range of a double.
constexpr double largest = 1e300;
// Below it there is too little left of a double's precision for ticks.
constexpr double smallestSpan = 1e-300;
// A span this small a part of the values is rounding: the ticks in it could not be told apart.
constexpr double smallestPart = 1e-12;

// Of the first digit that is not 0.
int exponentOf(double value)
{
    // A power of ten may come out a hair's breadth short of itself.
    return int(std::floor(std::log10(std::abs(value)) + 1e-9));
}

QString withoutIdleZeros(QString number)
{
    if (number.contains(u'.')) {
        while (number.endsWith(u'0')) {
            number.chop(1);
        }
        if (number.endsWith(u'.')) {
            number.chop(1);
        }
    }
    return number;
}

// The round step nearest to `span / steps`, by ratio.
double roundStep(double span, int steps)
{
    const double raw = span / std::max(1, steps);
    const double power = std::pow(10, std::floor(std::log10(raw)));
    const double lead = raw / power;
    return power * (lead < std::sqrt(2) ? 1 : lead < std::sqrt(10) ? 2 : lead < std::sqrt(50) ? 5 : 10);
}

// The tick at or below, or at or above, a place counted in steps. What misses a tick by no more than rounding does is at it.
double tickBelow(double place)
{
    return std::floor(place + 1e-9 + std::abs(place) * 1e-15);
}

double tickAbove(double place)
{
    return -tickBelow(-place);
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
        m_lower = tickBelow(m_lower / m_step) * m_step;
        m_upper = tickAbove(m_upper / m_step) * m_step;
    }
}

QList<double> AxisScale::ticks() const
{
    QList<double> ticks;
    if (isEmpty()) {
        return ticks;
    }
    const double first = tickAbove(m_lower / m_step);
    const double last = tickBelow(m_upper / m_step);
    for (int i = 0; first + i <= last; ++i) {
        ticks.append((first + i) * m_step + 0.0); // never the zero that has a sign
    }
    return ticks;
}

QString AxisScale::label(double tick) const
{
    if (tick == 0) {
        return u"0"_s;
    }
    // Larger numbers, and smaller steps, are shorter with an exponent: the same one for all, so that they compare at a glance.
    constexpr double longNumber = 1e10;
    constexpr int mostDecimals = 7;
    const double size = std::max(std::abs(m_lower), std::abs(m_upper));
    const int stepExponent = exponentOf(m_step);
    if (size < longNumber && -stepExponent <= mostDecimals) {
        return withoutIdleZeros(QString::number(tick, 'f', std::max(0, -stepExponent)));
    }
    const int exponent = exponentOf(size);
    const QString mantissa = QString::number(tick / std::pow(10, exponent), 'f', std::max(0, exponent - stepExponent));
    return withoutIdleZeros(mantissa) + u'e' + QString::number(exponent);
}

double AxisScale::place(double value) const
{
    return isEmpty() ? 0 : (std::clamp(value, -largest, largest) - m_lower) / (m_upper - m_lower);
}

} // namespace quillmere
