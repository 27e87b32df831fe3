#include "analytics/gauges/GaugeMeterState.h"

#include "app/theme/Color.h"
#include "app/theme/Motion.h"
#include "platform/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr double rise = 0.5; // seconds
constexpr double follow = 0.3;

} // namespace

QColor GaugeThresholds::statusColor(double value) const
{
    if (critical <= value) {
        return Color::red();
    }
    return warning <= value ? Color::orange() : Color::blue();
}

GaugeMeterState::GaugeMeterState(QObject *parent) : Observable(parent)
{
    m_way.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_way, &QVariantAnimation::valueChanged, this,
        [this](const QVariant &value) { setCurrentValue(value.toDouble()); });
    // The last step of an interpolation may miss its end by a rounding, and with it a threshold.
    connect(&m_way, &QVariantAnimation::finished, this, [this] { setCurrentValue(m_value); });
}

void GaugeMeterState::setValue(double value)
{
    if (m_value == value) {
        return;
    }
    const QString before = text();
    publish(m_value, value, u"value"_s, &GaugeMeterState::valueChanged);
    if (m_onView) {
        glide(follow);
    }
    if (text() != before) {
        emit textChanged();
    }
}

void GaugeMeterState::setMaxValue(double maxValue)
{
    publish(m_maxValue, maxValue, u"maxValue"_s, &GaugeMeterState::maxValueChanged);
    emit fractionChanged();
}

void GaugeMeterState::setThresholds(const GaugeThresholds &thresholds)
{
    publish(m_thresholds, thresholds, u"thresholds"_s, &GaugeMeterState::thresholdsChanged);
    emit statusColorChanged();
}

double GaugeMeterState::fraction() const
{
    return m_maxValue > 0 ? std::clamp(m_currentValue / m_maxValue, 0.0, 1.0) : 0;
}

QString GaugeMeterState::text() const
{
    return text::fixed(m_onView ? m_value : 0, 0);
}

void GaugeMeterState::appear()
{
    if (m_onView) {
        return;
    }
    m_onView = true;
    glide(rise);
    emit textChanged();
}

void GaugeMeterState::glide(double seconds)
{
    {
        // While it is set up anew it tells values of neither the old way nor the new one.
        const QSignalBlocker quiet(m_way);
        m_way.stop();
        m_way.setDuration(Motion::ofData(seconds));
        m_way.setStartValue(m_currentValue);
        m_way.setEndValue(m_value);
    }
    m_way.start();
}

void GaugeMeterState::setCurrentValue(double value)
{
    const double fractionBefore = fraction();
    const QColor colorBefore = statusColor();
    publish(m_currentValue, value, u"currentValue"_s, &GaugeMeterState::currentValueChanged);
    if (fraction() != fractionBefore) {
        emit fractionChanged();
    }
    if (statusColor() != colorBefore) {
        emit statusColorChanged();
    }
}

} // namespace quillmere
