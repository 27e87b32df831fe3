#include "analytics/AnalyticsDataManager.h"

#include "platform/Environment.h"

#include <QCoreApplication>
#include <QJSEngine>
#include <QThread>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

namespace {

using Status = AnalyticsDataManager::SystemHealthStatus;

constexpr std::array statuses{Status::Healthy, Status::Warning, Status::Critical};

} // namespace

QString AnalyticsDataManager::rawValue(SystemHealthStatus status)
{
    return std::array{u"SYSTEM HEALTHY"_s, u"WARNING"_s, u"CRITICAL"_s}.at(size_t(status));
}

std::optional<Status> AnalyticsDataManager::systemHealthStatus(const QString &rawValue)
{
    const auto *const found = std::find_if(statuses.begin(), statuses.end(),
        [&](Status status) { return AnalyticsDataManager::rawValue(status) == rawValue; });
    return found == statuses.end() ? std::nullopt : std::optional(*found);
}

AnalyticsDataManager &AnalyticsDataManager::shared()
{
    const auto shared = [] { return &Environment::current().shared<AnalyticsDataManager>(); };
    QObject *onMainThread = QCoreApplication::instance();
    if (onMainThread->thread() == QThread::currentThread()) {
        return *shared();
    }
    AnalyticsDataManager *manager = nullptr;
    QMetaObject::invokeMethod(onMainThread, shared, Qt::BlockingQueuedConnection, &manager);
    return *manager;
}

AnalyticsDataManager *AnalyticsDataManager::create(QQmlEngine *, QJSEngine *)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

AnalyticsDataManager::AnalyticsDataManager() : m_random(Environment::current().makeRandomSource())
{
    startSimulation();
}

void AnalyticsDataManager::startSimulation()
{
    m_timer.emplace(2s, [this] { updateSimulation(); });
}

void AnalyticsDataManager::updateSimulation()
{
    write(m_trainingLoss, std::max(0.0, m_trainingLoss + m_random->uniform(-0.01, 0.01)), u"trainingLoss"_s);
    write(m_validationLoss, std::max(0.0, m_validationLoss + m_random->uniform(-0.01, 0.01)), u"validationLoss"_s);
    write(m_tokensPerSec, std::max(1000.0, m_tokensPerSec + m_random->uniform(-50.0, 50.0)), u"tokensPerSec"_s);
    write(m_requestsPerMin, std::max<qint64>(0, m_requestsPerMin + m_random->integer(-50, 50)), u"requestsPerMin"_s);
    write(m_avgLatency, std::max<qint64>(10, m_avgLatency + m_random->integer(-5, 5)), u"avgLatency"_s);
    if (m_currentStep < m_totalSteps) {
        write(m_currentStep, m_currentStep + 10, u"currentStep"_s);
    }
}

template <typename T> void AnalyticsDataManager::write(T &field, T value, const QString &name)
{
    emit willChange(name);
    field = value;
    if (!std::exchange(m_willTell, true)) {
        const auto tell = [this] {
            m_willTell = false;
            emit changed();
        };
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    }
}

} // namespace quillmere
