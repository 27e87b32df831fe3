#pragma once

#include "platform/RandomSource.h"

#include <QList>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace quillmere {

// The curve of the monitoring screen. It is drawn at random each time any of the data manager's fields changes, and follows none of
// them.
class MonitoringState : public QObject {
    Q_OBJECT
    QML_ELEMENT

    // The heights of the 20 bars as fractions of the chart's height, falling from left to right.
    Q_PROPERTY(QList<double> lossBars READ lossBars NOTIFY changed)

public:
    explicit MonitoringState(QObject *parent = nullptr);

    // 21 values from 0.1 to 0.3, the largest first. The last one has no bar.
    const QList<double> &lossCurve() const { return m_lossCurve; }
    QList<double> lossBars() const;

signals:
    void changed();

private:
    void evaluate();

    const std::unique_ptr<RandomSource> m_random;
    QList<double> m_lossCurve;
};

} // namespace quillmere
