#include "analytics/monitoring/MonitoringState.h"

#include "analytics/AnalyticsDataManager.h"
#include "platform/Environment.h"

#include <algorithm>

namespace quillmere {

namespace {

constexpr int valueCount = 21;
constexpr int barCount = 20;
constexpr double barScale = 3.0;

} // namespace

MonitoringState::MonitoringState(QObject *parent) : QObject(parent), m_random(Environment::current().makeRandomSource())
{
    connect(&AnalyticsDataManager::shared(), &AnalyticsDataManager::changed, this, &MonitoringState::evaluate);
    evaluate();
}

QList<double> MonitoringState::lossBars() const
{
    QList<double> bars = m_lossCurve.first(barCount);
    for (double &bar : bars) {
        bar *= barScale;
    }
    return bars;
}

void MonitoringState::evaluate()
{
    QList<double> values(valueCount);
    std::generate(values.begin(), values.end(), [this] { return m_random->uniform(0.1, 0.3); });
    std::sort(values.begin(), values.end(), std::greater<>());
    m_lossCurve = std::move(values);
    emit changed();
}

} // namespace quillmere
