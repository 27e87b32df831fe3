#pragma once

#include "platform/RandomSource.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace quillmere {

// What moves on the monitoring screen: the two losses of the data manager, and a curve that is drawn at random each time any of the
// manager's fields changes and follows none of them.
class MonitoringState : public QObject {
    Q_OBJECT
    QML_ELEMENT

    // With three decimals.
    Q_PROPERTY(QString trainingLoss READ trainingLoss NOTIFY changed)
    Q_PROPERTY(QString validationLoss READ validationLoss NOTIFY changed)
    // The heights of the 20 bars as fractions of the chart's height, falling from left to right.
    Q_PROPERTY(QList<double> lossBars READ lossBars NOTIFY changed)

public:
    explicit MonitoringState(QObject *parent = nullptr);

    QString trainingLoss() const;
    QString validationLoss() const;
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
