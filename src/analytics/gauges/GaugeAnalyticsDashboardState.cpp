#include "analytics/gauges/GaugeAnalyticsDashboardState.h"

#include "platform/Environment.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

GaugeAnalyticsDashboardState::GaugeAnalyticsDashboardState(QObject *parent)
    : Observable(parent), m_random(Environment::current().makeRandomSource()), m_timer(500ms, [this] { tick(); })
{
}

void GaugeAnalyticsDashboardState::setIsPerformanceMode(bool isPerformanceMode)
{
    publish(m_isPerformanceMode, isPerformanceMode, u"isPerformanceMode"_s,
        &GaugeAnalyticsDashboardState::isPerformanceModeChanged);
}

void GaugeAnalyticsDashboardState::tick()
{
    using State = GaugeAnalyticsDashboardState;
    struct Walk {
        double State::*field;
        QString name;
        void (State::*changed)();
        double longestStep;
        double lowest;
        double highest;
    };
    // In the order of the draws, which has the loss before the confidence.
    static const std::array walks{
        Walk{&State::m_gpuTemp, u"gpuTemp"_s, &State::gpuTempChanged, 1.5, 40, 95},
        Walk{&State::m_vramUsage, u"vramUsage"_s, &State::vramUsageChanged, 0.1, 4, 24},
        Walk{&State::m_gpuLoad, u"gpuLoad"_s, &State::gpuLoadChanged, 5, 0, 100},
        Walk{&State::m_fanSpeed, u"fanSpeed"_s, &State::fanSpeedChanged, 50, 800, 4500},
        Walk{&State::m_cpuUtil, u"cpuUtil"_s, &State::cpuUtilChanged, 2, 5, 100},
        Walk{&State::m_throughput, u"throughput"_s, &State::throughputChanged, 100, 1000, 5000},
        Walk{&State::m_loss, u"loss"_s, &State::lossChanged, 0.01, 0.1, 2.5},
        Walk{&State::m_modelConfidence, u"modelConfidence"_s, &State::modelConfidenceChanged, 0.01, 0.5, 0.99},
    };
    for (const Walk &walk : walks) {
        double &value = this->*walk.field;
        const double moved = value + m_random->uniform(-walk.longestStep, walk.longestStep);
        publish(value, std::min(std::max(moved, walk.lowest), walk.highest), walk.name, walk.changed);
    }
}

} // namespace quillmere
