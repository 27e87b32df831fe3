#pragma once

#include "platform/Observable.h"
#include "platform/RandomSource.h"
#include "platform/RepeatingTimer.h"

#include <QList>
#include <QPointF>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace quillmere {

// One sample of a chart.
struct TelemetryPoint {
    QUuid id;
    double step = 0;
    double value = 0;
};

// The run that one visit to the training telemetry shows, and the controls beside it. Once a second each of the three series gets
// a point and keeps the last fifty; that goes on whatever the controls say, and has nothing to do with the walk of
// AnalyticsDataManager. Of the controls only the learning rate counts, and only for the points to come. Nothing is bounded: the
// step runs on beyond the run's end, where learning rates are negative, and a batch size may be negative too.
class TrainingTelemetryState : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(qint64 currentStep READ currentStep NOTIFY currentStepChanged)
    Q_PROPERTY(qint64 totalSteps READ totalSteps CONSTANT)
    Q_PROPERTY(qint64 currentEpoch READ currentEpoch CONSTANT)
    // The series as charts take them: steps across, values up.
    Q_PROPERTY(QList<QPointF> lossPoints READ lossPoints NOTIFY lossDataChanged)
    Q_PROPERTY(QList<QPointF> valLossPoints READ valLossPoints NOTIFY valLossDataChanged)
    Q_PROPERTY(QList<QPointF> learningRatePoints READ learningRatePoints NOTIFY learningRateDataChanged)

    Q_PROPERTY(double learningRate READ learningRate WRITE setLearningRate NOTIFY learningRateChanged)
    // QML has no whole number of 64 bits.
    Q_PROPERTY(double batchSize READ batchSize NOTIFY batchSizeChanged)
    Q_PROPERTY(double dropout READ dropout WRITE setDropout NOTIFY dropoutChanged)
    Q_PROPERTY(double gradientClipping READ gradientClipping WRITE setGradientClipping NOTIFY gradientClippingChanged)
    Q_PROPERTY(bool earlyStopping READ earlyStopping WRITE setEarlyStopping NOTIFY earlyStoppingChanged)
    Q_PROPERTY(bool fastEval READ fastEval WRITE setFastEval NOTIFY fastEvalChanged)

public:
    explicit TrainingTelemetryState(QObject *parent = nullptr);

    qint64 currentStep() const { return m_currentStep; }
    qint64 totalSteps() const { return m_totalSteps; }
    qint64 currentEpoch() const { return m_currentEpoch; }

    const QList<TelemetryPoint> &lossData() const { return m_lossData; }
    const QList<TelemetryPoint> &valLossData() const { return m_valLossData; }
    const QList<TelemetryPoint> &learningRateData() const { return m_learningRateData; }
    QList<QPointF> lossPoints() const;
    QList<QPointF> valLossPoints() const;
    QList<QPointF> learningRatePoints() const;

    double learningRate() const { return m_learningRate; }
    void setLearningRate(double learningRate);
    qint64 batchSize() const { return m_batchSize; }
    // By four up (1) or down (-1), without bounds.
    Q_INVOKABLE void stepBatchSize(int direction);
    double dropout() const { return m_dropout; }
    void setDropout(double dropout);
    double gradientClipping() const { return m_gradientClipping; }
    void setGradientClipping(double gradientClipping);
    bool earlyStopping() const { return m_earlyStopping; }
    void setEarlyStopping(bool earlyStopping);
    bool fastEval() const { return m_fastEval; }
    void setFastEval(bool fastEval);

signals:
    void currentStepChanged();
    void lossDataChanged();
    void valLossDataChanged();
    void learningRateDataChanged();
    void learningRateChanged();
    void batchSizeChanged();
    void dropoutChanged();
    void gradientClippingChanged();
    void earlyStoppingChanged();
    void fastEvalChanged();

private:
    using Series = QList<TelemetryPoint>;

    void tick();
    void append(
        Series &series, double step, double value, const QString &name, void (TrainingTelemetryState::*changed)());

    qint64 m_currentStep = 1420;
    qint64 m_totalSteps = 5000;
    qint64 m_currentEpoch = 2;
    Series m_lossData;
    Series m_valLossData;
    Series m_learningRateData;
    double m_learningRate = 0.0003;
    qint64 m_batchSize = 32;
    double m_dropout = 0.1;
    double m_gradientClipping = 1;
    bool m_earlyStopping = true;
    bool m_fastEval = false;

    std::unique_ptr<RandomSource> m_random;
    RepeatingTimer m_timer;
};

} // namespace quillmere
