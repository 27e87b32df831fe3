#pragma once

#include "analytics/gauges/GaugeMeterState.h"
#include "platform/Observable.h"
#include "platform/RandomSource.h"
#include "platform/RepeatingTimer.h"

#include <QtQml/qqmlregistration.h>

#include <memory>

namespace quillmere {

// The figures of one visit to the gauges. Eight of them take a random step every half second, each within bounds of its own; the
// others stay as they are. They have nothing to do with the figures of any other screen, and begin anew with each visit. The
// screen may turn the performance mode on and off, which changes nothing else.
class GaugeAnalyticsDashboardState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(double gpuTemp READ gpuTemp NOTIFY gpuTempChanged)          // °C
    Q_PROPERTY(double vramUsage READ vramUsage NOTIFY vramUsageChanged)    // GB
    Q_PROPERTY(double gpuLoad READ gpuLoad NOTIFY gpuLoadChanged)          // percent
    Q_PROPERTY(double fanSpeed READ fanSpeed NOTIFY fanSpeedChanged)       // turns a minute
    Q_PROPERTY(double cpuUtil READ cpuUtil NOTIFY cpuUtilChanged)          // percent
    Q_PROPERTY(double memoryUsage READ memoryUsage CONSTANT)               // GB
    Q_PROPERTY(double diskSpeed READ diskSpeed CONSTANT)                   // MB/s
    Q_PROPERTY(double netSpeed READ netSpeed CONSTANT)                     // MB/s
    Q_PROPERTY(double throughput READ throughput NOTIFY throughputChanged) // tokens a second
    Q_PROPERTY(double trainingSpeed READ trainingSpeed CONSTANT)           // iterations a second
    Q_PROPERTY(double gradientNorm READ gradientNorm CONSTANT)
    Q_PROPERTY(double dataQuality READ dataQuality CONSTANT)
    Q_PROPERTY(double rejectionRate READ rejectionRate CONSTANT)                          // on no gauge
    Q_PROPERTY(double modelConfidence READ modelConfidence NOTIFY modelConfidenceChanged) // a fraction
    Q_PROPERTY(double loss READ loss NOTIFY lossChanged)
    Q_PROPERTY(bool isPerformanceMode READ isPerformanceMode WRITE setIsPerformanceMode NOTIFY isPerformanceModeChanged)

public:
    explicit GaugeAnalyticsDashboardState(QObject *parent = nullptr);

    double gpuTemp() const { return m_gpuTemp; }
    double vramUsage() const { return m_vramUsage; }
    double gpuLoad() const { return m_gpuLoad; }
    double fanSpeed() const { return m_fanSpeed; }
    double cpuUtil() const { return m_cpuUtil; }
    double memoryUsage() const { return m_memoryUsage; }
    double diskSpeed() const { return m_diskSpeed; }
    double netSpeed() const { return m_netSpeed; }
    double throughput() const { return m_throughput; }
    double trainingSpeed() const { return m_trainingSpeed; }
    double gradientNorm() const { return m_gradientNorm; }
    double dataQuality() const { return m_dataQuality; }
    double rejectionRate() const { return m_rejectionRate; }
    double modelConfidence() const { return m_modelConfidence; }
    double loss() const { return m_loss; }

    bool isPerformanceMode() const { return m_isPerformanceMode; }
    void setIsPerformanceMode(bool isPerformanceMode);

    // QML of this version cannot write such a value down.
    Q_INVOKABLE static quillmere::GaugeThresholds thresholds(double normal, double warning, double critical)
    {
        return {normal, warning, critical};
    }

signals:
    void gpuTempChanged();
    void vramUsageChanged();
    void gpuLoadChanged();
    void fanSpeedChanged();
    void cpuUtilChanged();
    void throughputChanged();
    void modelConfidenceChanged();
    void lossChanged();
    void isPerformanceModeChanged();

private:
    void tick();

    double m_gpuTemp = 65;
    double m_vramUsage = 8.2;
    double m_gpuLoad = 45;
    double m_fanSpeed = 1200;
    double m_cpuUtil = 32;
    double m_memoryUsage = 12.4;
    double m_diskSpeed = 450;
    double m_netSpeed = 25;
    double m_throughput = 3200;
    double m_trainingSpeed = 4.5;
    double m_gradientNorm = 1.2;
    double m_dataQuality = 92;
    double m_rejectionRate = 2.5;
    double m_modelConfidence = 0.88;
    double m_loss = 0.45;
    bool m_isPerformanceMode = false;

    std::unique_ptr<RandomSource> m_random;
    RepeatingTimer m_timer;
};

} // namespace quillmere
