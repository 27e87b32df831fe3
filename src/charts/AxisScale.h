#pragma once

#include <QList>
#include <QString>

#include <limits>

namespace quillmere {

// The least and the greatest of some numbers; those that are not finite are passed over.
struct ValueRange {
    double least = std::numeric_limits<double>::infinity();
    double greatest = -std::numeric_limits<double>::infinity();

    void include(double value);
    bool isEmpty() const { return least > greatest; }

    bool operator==(const ValueRange &) const = default;
};

// An axis: the numbers from its lower to its upper end, with ticks at round distances (1, 2 or 5 times a power of ten).
// Whatever range it is made for, its ends are finite and apart, and its ticks and their labels differ from one another. An
// empty range makes an empty scale, without ticks.
class AxisScale {
public:
    // Where the ends lie: at the least and the greatest value, or further out at the next tick.
    enum class Ends { AtValues, AtTicks };

    AxisScale() = default;
    // With about as many steps between its ticks as told.
    AxisScale(ValueRange range, int steps, Ends ends);

    bool isEmpty() const { return m_lower == m_upper; }
    double lower() const { return m_lower; }
    double upper() const { return m_upper; }
    double step() const { return m_step; }

    // The ticks between the ends, both included, from the lowest up.
    QList<double> ticks() const;
    // A tick as text, with as many digits as tell it from its neighbours and no zeros that say nothing, whatever the locale: "0",
    // "2.5", "-1200", "1.5e20" beside "0.5e20".
    QString label(double tick) const;
    // Where a value is along the axis: 0 at the lower end, 1 at the upper one.
    double place(double value) const;

private:
    double m_lower = 0;
    double m_upper = 0;
    double m_step = 0;
};

} // namespace quillmere
