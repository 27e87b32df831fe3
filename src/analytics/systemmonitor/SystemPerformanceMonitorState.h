#pragma once

#include "platform/Observable.h"
#include "platform/RandomSource.h"

#include <QList>
#include <QPointF>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace quillmere {

// Which device the system monitor is set to, and the curve that it shows. The choice changes no figure; it draws the curve anew, at
// random, as whatever draws the panel again does. There is no timer.
class SystemPerformanceMonitorState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    // 0: GPU, 1: CPU.
    Q_PROPERTY(int selectedDevice READ selectedDevice WRITE setSelectedDevice NOTIFY selectedDeviceChanged)
    // 21 points from left to right, in fractions of the width and the height. The first lies in the middle of the height, the others
    // up to 0.3 above or below it.
    Q_PROPERTY(QList<QPointF> throughput READ throughput NOTIFY throughputChanged)

public:
    explicit SystemPerformanceMonitorState(QObject *parent = nullptr);

    int selectedDevice() const { return m_selectedDevice; }
    void setSelectedDevice(int device);
    QList<QPointF> throughput() const { return m_throughput; }

signals:
    void selectedDeviceChanged();
    void throughputChanged();

private:
    void drawThroughput();

    const std::unique_ptr<RandomSource> m_random;
    int m_selectedDevice = 0;
    QList<QPointF> m_throughput;
};

} // namespace quillmere
