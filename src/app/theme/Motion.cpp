#include "app/theme/Motion.h"

#include "platform/Environment.h"
#include "platform/MotionPreference.h"

#include <QPointF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillmere {

namespace {

// x'' + 2 d w x' + w² x = w², from rest at 0: where the spring stands after t seconds, and how fast it moves.
struct Spring {
    double frequency;
    double damping;

    static Spring of(double response, double damping)
    {
        return {2 * std::numbers::pi / response, std::min(damping, 0.999)};
    }

    double dampedFrequency() const { return frequency * std::sqrt(1 - damping * damping); }
    double position(double t) const
    {
        const double swing = dampedFrequency() * t;
        return 1
            - std::exp(-damping * frequency * t)
            * (std::cos(swing) + damping * frequency / dampedFrequency() * std::sin(swing));
    }
    double velocity(double t) const
    {
        return std::exp(-damping * frequency * t) * frequency * frequency / dampedFrequency()
            * std::sin(dampedFrequency() * t);
    }
    double settled() const { return std::log(1000 / std::sqrt(1 - damping * damping)) / (damping * frequency); }
};

} // namespace

Motion::Motion(QObject *parent) : QObject(parent)
{
    connect(&MotionPreference::shared(), &MotionPreference::changed, this, &Motion::changed);
}

int Motion::ofInterface(double seconds)
{
    return MotionPreference::shared().isReduced() ? 0 : ofData(seconds);
}

int Motion::ofData(double seconds)
{
    return Environment::current().animations ? int(std::lround(seconds * 1000)) : 0;
}

double Motion::settlingTime(double response, double damping)
{
    return Spring::of(response, damping).settled();
}

QEasingCurve Motion::spring(double response, double damping)
{
    // Cubic pieces that share position and speed with the spring at their ends. More than nine of them, and this Qt writes behind
    // its own tables; so they are short where the spring moves most.
    constexpr int pieces = 9;
    const Spring spring = Spring::of(response, damping);
    const double end = spring.settled();
    QEasingCurve curve(QEasingCurve::BezierSpline);
    for (int i = 0; i < pieces; ++i) {
        const double from = std::pow(double(i) / pieces, 1.5);
        const double to = std::pow(double(i + 1) / pieces, 1.5);
        const double third = (to - from) / 3;
        const auto place = [&](double x) { return spring.position(x * end); };
        const auto slope = [&](double x) { return spring.velocity(x * end) * end; };
        const bool last = i + 1 == pieces;
        const QPointF target(to, last ? 1 : place(to));
        curve.addCubicBezierSegment({from + third, place(from) + slope(from) * third},
            {to - third, target.y() - (last ? 0 : slope(to) * third)}, target);
    }
    return curve;
}

} // namespace quillmere
