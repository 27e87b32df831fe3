#pragma once

#include "platform/Observable.h"
#include "platform/RandomSource.h"
#include "platform/RepeatingTimer.h"

#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

class QJSEngine;
class QQmlEngine;

namespace quillmere {

// The one source of the figures that the analytics screens show of a training run and its dataset. They are simulated: all start from
// constants, and from the first use to the end of the process six of them take a step of a random walk every two seconds. The
// others never change. Nothing sets, resets, pauses or stops them.
//
// Each write is announced on its own, by `willChange` and before the field has its new value. What has changed is told by one signal,
// once in a turn of the event loop however many fields were written: a screen that draws anew on `changed` does so once in two
// seconds.
class AnalyticsDataManager : public quillmere::Observable {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(qint64 currentEpoch READ currentEpoch NOTIFY changed)
    Q_PROPERTY(qint64 totalEpochs READ totalEpochs NOTIFY changed)
    Q_PROPERTY(qint64 currentStep READ currentStep NOTIFY changed)
    Q_PROPERTY(qint64 totalSteps READ totalSteps NOTIFY changed)
    Q_PROPERTY(double trainingLoss READ trainingLoss NOTIFY changed)
    Q_PROPERTY(double validationLoss READ validationLoss NOTIFY changed)
    Q_PROPERTY(double accuracy READ accuracy NOTIFY changed)
    Q_PROPERTY(double tokensPerSec READ tokensPerSec NOTIFY changed)
    Q_PROPERTY(double gradNorm READ gradNorm NOTIFY changed)
    Q_PROPERTY(double lrStability READ lrStability NOTIFY changed)
    Q_PROPERTY(qint64 totalSamples READ totalSamples NOTIFY changed)
    Q_PROPERTY(QString totalTokens READ totalTokens NOTIFY changed)
    Q_PROPERTY(QString vocabSize READ vocabSize NOTIFY changed)
    Q_PROPERTY(QString duplicatesPercentage READ duplicatesPercentage NOTIFY changed)
    Q_PROPERTY(qint64 avgLength READ avgLength NOTIFY changed)
    Q_PROPERTY(double qualityScore READ qualityScore NOTIFY changed)
    Q_PROPERTY(SystemHealthStatus systemHealth READ systemHealth NOTIFY changed)
    Q_PROPERTY(qint64 requestsPerMin READ requestsPerMin NOTIFY changed)
    Q_PROPERTY(qint64 avgLatency READ avgLatency NOTIFY changed)
    Q_PROPERTY(double errorRate READ errorRate NOTIFY changed)
    Q_PROPERTY(double dataDrift READ dataDrift NOTIFY changed)
    Q_PROPERTY(QString totalTrainingTime READ totalTrainingTime NOTIFY changed)
    Q_PROPERTY(double finalLoss READ finalLoss NOTIFY changed)
    Q_PROPERTY(double trainingCost READ trainingCost NOTIFY changed)
    Q_PROPERTY(double co2Emissions READ co2Emissions NOTIFY changed)

public:
    enum class SystemHealthStatus { Healthy, Warning, Critical };
    Q_ENUM(SystemHealthStatus)

    // "SYSTEM HEALTHY", "WARNING", "CRITICAL".
    static QString rawValue(SystemHealthStatus status);
    // Any other text gives none.
    static std::optional<SystemHealthStatus> systemHealthStatus(const QString &rawValue);

    // May be asked for by any thread. The main thread makes it, since its timer runs there; another thread that asks first waits
    // for that.
    static AnalyticsDataManager &shared();
    static AnalyticsDataManager *create(QQmlEngine *, QJSEngine *);

    qint64 currentEpoch() const { return m_currentEpoch; }
    qint64 totalEpochs() const { return m_totalEpochs; }
    qint64 currentStep() const { return m_currentStep; }
    qint64 totalSteps() const { return m_totalSteps; }
    double trainingLoss() const { return m_trainingLoss; }
    double validationLoss() const { return m_validationLoss; }
    double accuracy() const { return m_accuracy; }
    double tokensPerSec() const { return m_tokensPerSec; }
    double gradNorm() const { return m_gradNorm; }
    double lrStability() const { return m_lrStability; }
    qint64 totalSamples() const { return m_totalSamples; }
    QString totalTokens() const { return m_totalTokens; }
    QString vocabSize() const { return m_vocabSize; }
    QString duplicatesPercentage() const { return m_duplicatesPercentage; }
    qint64 avgLength() const { return m_avgLength; }
    double qualityScore() const { return m_qualityScore; }
    SystemHealthStatus systemHealth() const { return m_systemHealth; }
    qint64 requestsPerMin() const { return m_requestsPerMin; }
    qint64 avgLatency() const { return m_avgLatency; } // in milliseconds
    double errorRate() const { return m_errorRate; }
    double dataDrift() const { return m_dataDrift; }
    QString totalTrainingTime() const { return m_totalTrainingTime; }
    double finalLoss() const { return m_finalLoss; }
    double trainingCost() const { return m_trainingCost; }
    double co2Emissions() const { return m_co2Emissions; }

signals:
    void changed();

private:
    friend class Environment;
    AnalyticsDataManager();

    void startSimulation();
    void updateSimulation();
    template <typename T> void write(T &field, T value, const QString &name);

    const std::unique_ptr<RandomSource> m_random;
    bool m_willTell = false;

    qint64 m_currentEpoch = 2;
    qint64 m_totalEpochs = 10;
    qint64 m_currentStep = 1420;
    qint64 m_totalSteps = 5000;
    double m_trainingLoss = 0.421;
    double m_validationLoss = 0.455;
    double m_accuracy = 0.942;
    double m_tokensPerSec = 4250.0;
    double m_gradNorm = 1.2;
    double m_lrStability = 0.98;
    qint64 m_totalSamples = 42500;
    QString m_totalTokens = QStringLiteral("12.4M");
    QString m_vocabSize = QStringLiteral("50,257");
    QString m_duplicatesPercentage = QStringLiteral("1.2%");
    qint64 m_avgLength = 292;
    double m_qualityScore = 0.88;
    SystemHealthStatus m_systemHealth = SystemHealthStatus::Healthy;
    qint64 m_requestsPerMin = 1240;
    qint64 m_avgLatency = 45;
    double m_errorRate = 0.0002;
    double m_dataDrift = 0.12;
    QString m_totalTrainingTime = QStringLiteral("4h 32m");
    double m_finalLoss = 0.32;
    double m_trainingCost = 15.4;
    double m_co2Emissions = 2.4;

    std::optional<RepeatingTimer> m_timer;
};

} // namespace quillmere
