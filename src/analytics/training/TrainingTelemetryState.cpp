#include "analytics/training/TrainingTelemetryState.h"

#include "platform/Environment.h"

#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

namespace {

constexpr qsizetype mostPoints = 50;

QList<QPointF> toPoints(const QList<TelemetryPoint> &series)
{
    QList<QPointF> points;
    points.reserve(series.size());
    for (const TelemetryPoint &point : series) {
        points.append({point.step, point.value});
    }
    return points;
}

} // namespace

TrainingTelemetryState::TrainingTelemetryState(QObject *parent)
    : Observable(parent), m_random(Environment::current().makeRandomSource()), m_timer(1s, [this] { tick(); })
{
}

void TrainingTelemetryState::tick()
{
    const auto step = double(m_currentStep);
    const double wave = std::sin(step / 100.0);
    const double lossNoise = m_random->uniform(-0.05, 0.05);
    const double valLossNoise = m_random->uniform(-0.03, 0.03);
    using State = TrainingTelemetryState;
    append(m_lossData, step, wave * 0.1 + 0.5 + lossNoise, u"lossData"_s, &State::lossDataChanged);
    append(m_valLossData, step, wave * 0.08 + 0.55 + valLossNoise, u"valLossData"_s, &State::valLossDataChanged);
    // The 5000 is no other name for totalSteps.
    append(m_learningRateData, step, (step / -5000.0 + 1.0) * m_learningRate, u"learningRateData"_s,
        &State::learningRateDataChanged);
    publish(m_currentStep, m_currentStep + 1, u"currentStep"_s, &State::currentStepChanged);
}

void TrainingTelemetryState::append(
    Series &series, double step, double value, const QString &name, void (TrainingTelemetryState::*changed)())
{
    Series longer = series;
    longer.append({QUuid::createUuid(), step, value});
    if (longer.size() > mostPoints) {
        longer.removeFirst();
    }
    publish(series, std::move(longer), name, changed);
}

QList<QPointF> TrainingTelemetryState::lossPoints() const
{
    return toPoints(m_lossData);
}

QList<QPointF> TrainingTelemetryState::valLossPoints() const
{
    return toPoints(m_valLossData);
}

QList<QPointF> TrainingTelemetryState::learningRatePoints() const
{
    return toPoints(m_learningRateData);
}

void TrainingTelemetryState::setLearningRate(double learningRate)
{
    publish(m_learningRate, learningRate, u"learningRate"_s, &TrainingTelemetryState::learningRateChanged);
}

void TrainingTelemetryState::stepBatchSize(int direction)
{
    publish(m_batchSize, m_batchSize + direction * 4, u"batchSize"_s, &TrainingTelemetryState::batchSizeChanged);
}

void TrainingTelemetryState::setDropout(double dropout)
{
    publish(m_dropout, dropout, u"dropout"_s, &TrainingTelemetryState::dropoutChanged);
}

void TrainingTelemetryState::setGradientClipping(double gradientClipping)
{
    publish(
        m_gradientClipping, gradientClipping, u"gradientClipping"_s, &TrainingTelemetryState::gradientClippingChanged);
}

void TrainingTelemetryState::setEarlyStopping(bool earlyStopping)
{
    publish(m_earlyStopping, earlyStopping, u"earlyStopping"_s, &TrainingTelemetryState::earlyStoppingChanged);
}

void TrainingTelemetryState::setFastEval(bool fastEval)
{
    publish(m_fastEval, fastEval, u"fastEval"_s, &TrainingTelemetryState::fastEvalChanged);
}

} // namespace quillmere
