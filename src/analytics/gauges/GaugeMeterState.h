#pragma once

#include "platform/Observable.h"

#include <QColor>
#include <QVariantAnimation>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// Where a gauge's colour turns. One rule holds for all gauges: from `warning` on it is orange, from `critical` on red, also on a
// gauge whose high values are the good ones. `normal` belongs to the figures and is not consulted.
struct GaugeThresholds {
    Q_GADGET
    QML_VALUE_TYPE(gaugeThresholds)

    Q_PROPERTY(double normal MEMBER normal)
    Q_PROPERTY(double warning MEMBER warning)
    Q_PROPERTY(double critical MEMBER critical)

public:
    double normal = 0;
    double warning = 0;
    double critical = 0;

    bool operator==(const GaugeThresholds &) const = default;

    QColor statusColor(double value) const;
};

// What one gauge shows of a value. Nothing until the gauge comes on view; from then on `currentValue` is on its way to the value:
// from 0 in half a second at first, then after each change in 0.3 s. Arc and colour follow it, and stand where it stands in every
// frame. The text is the figure that it is on its way to.
class GaugeMeterState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(double maxValue READ maxValue WRITE setMaxValue NOTIFY maxValueChanged)
    Q_PROPERTY(quillmere::GaugeThresholds thresholds READ thresholds WRITE setThresholds NOTIFY thresholdsChanged)
    Q_PROPERTY(double currentValue READ currentValue NOTIFY currentValueChanged)
    Q_PROPERTY(double fraction READ fraction NOTIFY fractionChanged)
    Q_PROPERTY(QColor statusColor READ statusColor NOTIFY statusColorChanged)
    Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
    explicit GaugeMeterState(QObject *parent = nullptr);

    double value() const { return m_value; }
    void setValue(double value);
    double maxValue() const { return m_maxValue; }
    void setMaxValue(double maxValue);
    GaugeThresholds thresholds() const { return m_thresholds; }
    void setThresholds(const GaugeThresholds &thresholds);

    double currentValue() const { return m_currentValue; }
    // How much of the gauge is lit, from 0 to 1. A value beyond the largest lights all of it and no more.
    double fraction() const;
    QColor statusColor() const { return m_thresholds.statusColor(m_currentValue); }
    // Without decimals whatever the value's size.
    QString text() const;

    Q_INVOKABLE void appear();

signals:
    void valueChanged();
    void maxValueChanged();
    void thresholdsChanged();
    void currentValueChanged();
    void fractionChanged();
    void statusColorChanged();
    void textChanged();

private:
    void glide(double seconds);
    void setCurrentValue(double value);

    double m_value = 0;
    double m_maxValue = 1;
    GaugeThresholds m_thresholds;
    double m_currentValue = 0;
    bool m_onView = false;
    QVariantAnimation m_way;
};

} // namespace quillmere
