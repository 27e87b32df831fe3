#include "analytics/AnalyticsDataManager.h"

#include "platform/MainQueue.h"
#include "platform/SystemRandom.h"
#include "support/PlatformEnvironment.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using testing::eventually;
using testing::PlatformEnvironment;
using testing::settle;

namespace {

using Status = AnalyticsDataManager::SystemHealthStatus;

AnalyticsDataManager &manager()
{
    return AnalyticsDataManager::shared();
}

// All fields by name, in the order of their declaration.
QList<std::pair<QString, QVariant>> fields()
{
    const QMetaObject &type = AnalyticsDataManager::staticMetaObject;
    QList<std::pair<QString, QVariant>> fields;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        fields.append({QString::fromLatin1(property.name()), property.read(&manager())});
    }
    return fields;
}

const QList<std::pair<QString, QVariant>> initialFields{
    {u"currentEpoch"_s, qint64(2)},
    {u"totalEpochs"_s, qint64(10)},
    {u"currentStep"_s, qint64(1420)},
    {u"totalSteps"_s, qint64(5000)},
    {u"trainingLoss"_s, 0.421},
    {u"validationLoss"_s, 0.455},
    {u"accuracy"_s, 0.942},
    {u"tokensPerSec"_s, 4250.0},
    {u"gradNorm"_s, 1.2},
    {u"lrStability"_s, 0.98},
    {u"totalSamples"_s, qint64(42500)},
    {u"totalTokens"_s, u"12.4M"_s},
    {u"vocabSize"_s, u"50,257"_s},
    {u"duplicatesPercentage"_s, u"1.2%"_s},
    {u"avgLength"_s, qint64(292)},
    {u"qualityScore"_s, 0.88},
    {u"systemHealth"_s, QVariant::fromValue(Status::Healthy)},
    {u"requestsPerMin"_s, qint64(1240)},
    {u"avgLatency"_s, qint64(45)},
    {u"errorRate"_s, 0.0002},
    {u"dataDrift"_s, 0.12},
    {u"totalTrainingTime"_s, u"4h 32m"_s},
    {u"finalLoss"_s, 0.32},
    {u"trainingCost"_s, 15.4},
    {u"co2Emissions"_s, 2.4},
};

const QStringList moved{
    u"trainingLoss"_s, u"validationLoss"_s, u"tokensPerSec"_s, u"requestsPerMin"_s, u"avgLatency"_s, u"currentStep"_s};

// Draws what a test says, and notes between which bounds it was asked to draw.
struct ChosenDraws {
    enum Choice { Lowest, Middle, Highest };

    Choice choice = Middle;
    QStringList asked;
};

class ChosenRandom : public RandomSource {
public:
    explicit ChosenRandom(ChosenDraws &draws) : m_draws(draws) { }

    double uniform(double lowest, double highest) override
    {
        m_draws.asked.append(u"real %1 to %2"_s.arg(lowest).arg(highest));
        return pick(lowest, highest);
    }
    int integer(int lowest, int highest) override
    {
        m_draws.asked.append(u"whole %1 to %2"_s.arg(lowest).arg(highest));
        return int(pick(lowest, highest));
    }

private:
    double pick(double lowest, double highest) const
    {
        const std::array choices{lowest, (lowest + highest) / 2, highest};
        return choices.at(size_t(m_draws.choice));
    }

    ChosenDraws &m_draws;
};

} // namespace

class tst_AnalyticsDataManager : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    ChosenDraws m_draws;

    void draws(ChosenDraws::Choice choice)
    {
        m_draws.choice = choice;
        m_world->environment.makeRandomSource = [this] { return std::make_unique<ChosenRandom>(m_draws); };
    }
    void ticks(int count = 1) { m_world->clock.advance(count * 2s); }

private slots:
    void init()
    {
        m_world = std::make_unique<PlatformEnvironment>();
        m_draws = {};
    }
    void cleanup() { m_world.reset(); }

    // The first use

    void doesNotRunBeforeItsFirstUse()
    {
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        manager();
        QCOMPARE(m_world->clock.scheduledCount(), 1);
    }

    void hasTwentyFiveFieldsThatNobodyCanSet()
    {
        manager();
        QCOMPARE(fields().size(), 25);
        const QMetaObject &type = AnalyticsDataManager::staticMetaObject;
        for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
            QVERIFY2(!type.property(i).isWritable(), type.property(i).name());
            QVERIFY2(type.property(i).hasNotifySignal(), type.property(i).name());
        }
    }

    void showsTheInitialValuesUntilTheFirstTick()
    {
        manager();
        QCOMPARE(fields(), initialFields);
        m_world->clock.advance(1'999ms);
        QCOMPARE(fields(), initialFields);
        m_world->clock.advance(1ms);
        QVERIFY(fields() != initialFields);
    }

    void isMadeOnceForAll()
    {
        AnalyticsDataManager *first = &manager();
        ticks(3);
        const auto before = fields();
        QCOMPARE(&manager(), first);
        QCOMPARE(fields(), before);
        QCOMPARE(m_world->clock.scheduledCount(), 1);
    }

    void isMadeOnceOnTheMainThreadWhicheverThreadAsksFirst()
    {
        constexpr int count = 8;
        std::array<AnalyticsDataManager *, count> found{};
        std::array<std::unique_ptr<QThread>, count> threads;
        std::atomic<int> finished = 0;
        for (size_t i = 0; i < count; ++i) {
            threads[i].reset(QThread::create([&, i] {
                found[i] = &AnalyticsDataManager::shared();
                ++finished;
            }));
            threads[i]->start();
        }
        QVERIFY(eventually([&] { return finished == count; }));
        for (const auto &thread : threads) {
            thread->wait();
        }
        for (const AnalyticsDataManager *one : found) {
            QCOMPARE(one, &manager());
        }
        QCOMPARE(manager().thread(), QThread::currentThread());
        QCOMPARE(m_world->clock.scheduledCount(), 1);
        ticks();
        QCOMPARE(manager().currentStep(), 1430);
    }

    void stopsWithItsEnvironment()
    {
        manager();
        m_world.reset();
        m_world = std::make_unique<PlatformEnvironment>();
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        QCOMPARE(fields(), initialFields);
    }

    // The walk

    void walksAThousandTicksByTheFormulas()
    {
        manager();
        // The same draws as the manager's own stream gives, in the order that they are asked for.
        SystemRandom random(1);
        double trainingLoss = 0.421;
        double validationLoss = 0.455;
        double tokensPerSec = 4250.0;
        qint64 requestsPerMin = 1240;
        qint64 avgLatency = 45;
        qint64 currentStep = 1420;
        for (int tick = 1; tick <= 1000; ++tick) {
            ticks();
            trainingLoss += random.uniform(-0.01, 0.01);
            if (trainingLoss < 0) {
                trainingLoss = 0;
            }
            validationLoss += random.uniform(-0.01, 0.01);
            if (validationLoss < 0) {
                validationLoss = 0;
            }
            tokensPerSec = std::max(1000.0, tokensPerSec + random.uniform(-50.0, 50.0));
            requestsPerMin = std::max(qint64(0), requestsPerMin + random.integer(-50, 50));
            avgLatency = std::max(qint64(10), avgLatency + random.integer(-5, 5));
            currentStep = std::min(qint64(5000), currentStep + 10);
            // To the last digit.
            QVERIFY2(manager().trainingLoss() == trainingLoss, QByteArray::number(tick));
            QVERIFY2(manager().validationLoss() == validationLoss, QByteArray::number(tick));
            QVERIFY2(manager().tokensPerSec() == tokensPerSec, QByteArray::number(tick));
            QCOMPARE(manager().requestsPerMin(), requestsPerMin);
            QCOMPARE(manager().avgLatency(), avgLatency);
            QCOMPARE(manager().currentStep(), currentStep);
        }
        // All else stands where it stood.
        const auto now = fields();
        for (qsizetype i = 0; i < now.size(); ++i) {
            if (!moved.contains(now[i].first)) {
                QCOMPARE(now[i], initialFields[i]);
            }
        }
        QCOMPARE(manager().systemHealth(), Status::Healthy);
    }

    void drawsInAFixedOrderBetweenFixedBounds()
    {
        draws(ChosenDraws::Middle);
        manager();
        QCOMPARE(m_draws.asked, QStringList());
        const QStringList asked{u"real -0.01 to 0.01"_s, u"real -0.01 to 0.01"_s, u"real -50 to 50"_s,
            u"whole -50 to 50"_s, u"whole -5 to 5"_s};
        ticks();
        QCOMPARE(m_draws.asked, asked);
        ticks();
        QCOMPARE(m_draws.asked, asked + asked);
    }

    void lossesReachZeroAndLeaveIt()
    {
        draws(ChosenDraws::Lowest);
        manager();
        ticks(50);
        QVERIFY(manager().trainingLoss() == 0.0);
        QVERIFY(manager().validationLoss() == 0.0);
        QVERIFY(!std::signbit(manager().trainingLoss()));
        draws(ChosenDraws::Highest);
        ticks();
        QVERIFY(manager().trainingLoss() == 0.01);
        QVERIFY(manager().validationLoss() == 0.01);
    }

    void hasFloors()
    {
        draws(ChosenDraws::Lowest);
        manager();
        ticks(64);
        QVERIFY(manager().tokensPerSec() == 1050.0);
        ticks(2);
        QVERIFY(manager().tokensPerSec() == 1000.0);
        QCOMPARE(manager().requestsPerMin(), 0);
        QCOMPARE(manager().avgLatency(), 10);
        ticks();
        QVERIFY(manager().tokensPerSec() == 1000.0);
        QCOMPARE(manager().requestsPerMin(), 0);
        QCOMPARE(manager().avgLatency(), 10);
    }

    void hasNoCeilings()
    {
        draws(ChosenDraws::Highest);
        manager();
        ticks(1000);
        QVERIFY(qAbs(manager().trainingLoss() - 10.421) < 1e-9);
        QVERIFY(manager().tokensPerSec() == 54250.0);
        QCOMPARE(manager().requestsPerMin(), 51240);
        QCOMPARE(manager().avgLatency(), 5045);
    }

    void stepsTo5000AndStaysWhileTheWalksGoOn()
    {
        draws(ChosenDraws::Highest);
        manager();
        ticks(357);
        QCOMPARE(manager().currentStep(), 4990);
        ticks();
        QCOMPARE(m_world->clock.uptime(), std::chrono::milliseconds(716s));
        QCOMPARE(manager().currentStep(), 5000);
        const qint64 latency = manager().avgLatency();
        ticks(2);
        QCOMPARE(manager().currentStep(), 5000);
        QCOMPARE(manager().avgLatency(), latency + 10);
        QCOMPARE(manager().currentEpoch(), 2);
    }

    void walksOnUnderAnAlert()
    {
        manager();
        MainQueue::shared().hold();
        ticks(3);
        QCOMPARE(manager().currentStep(), 1450);
    }

    // What it tells

    void announcesSixWritesATickAndFiveOnceTheStepIsFrozen()
    {
        manager();
        QSignalSpy announced(&manager(), &AnalyticsDataManager::willChange);
        QStringList names;
        connect(
            &manager(), &AnalyticsDataManager::willChange, this, [&](const QString &field) { names.append(field); });
        ticks();
        QCOMPARE(names, moved);
        ticks(357);
        QCOMPARE(announced.size(), 358 * 6);
        names.clear();
        ticks();
        QCOMPARE(names, moved.mid(0, 5));
    }

    void announcesBeforeTheWrite()
    {
        draws(ChosenDraws::Highest);
        manager();
        QVariantList seen;
        connect(&manager(), &AnalyticsDataManager::willChange, this,
            [&](const QString &field) { seen.append(manager().property(field.toLatin1())); });
        ticks();
        QCOMPARE(seen, QVariantList({0.421, 0.455, 4250.0, qint64(1240), qint64(45), qint64(1420)}));
        QCOMPARE(manager().currentStep(), 1430);
        seen.clear();
        ticks();
        QCOMPARE(seen, QVariantList({0.421 + 0.01, 0.455 + 0.01, 4300.0, qint64(1290), qint64(50), qint64(1430)}));
    }

    void announcesAWriteOfTheSameValue()
    {
        draws(ChosenDraws::Middle); // which is 0 for all five
        manager();
        QSignalSpy announced(&manager(), &AnalyticsDataManager::willChange);
        QSignalSpy changed(&manager(), &AnalyticsDataManager::changed);
        ticks(400);
        QVERIFY(manager().trainingLoss() == 0.421);
        settle();
        announced.clear();
        changed.clear();
        ticks();
        QCOMPARE(announced.size(), 5);
        settle();
        QCOMPARE(changed.size(), 1);
    }

    void tellsOnceATurnOfTheEventLoopThatItHasChanged()
    {
        manager();
        QSignalSpy changed(&manager(), &AnalyticsDataManager::changed);
        ticks();
        QCOMPARE(changed.size(), 0); // not in the middle of the tick
        settle();
        QCOMPARE(changed.size(), 1);
        settle();
        QCOMPARE(changed.size(), 1);
        ticks(3); // all in one turn
        settle();
        QCOMPARE(changed.size(), 2);
        ticks();
        settle();
        QCOMPARE(changed.size(), 3);
    }

    // System health

    void namesItsHealth_data()
    {
        QTest::addColumn<Status>("status");
        QTest::addColumn<QString>("rawValue");
        QTest::newRow("healthy") << Status::Healthy << u"SYSTEM HEALTHY"_s;
        QTest::newRow("warning") << Status::Warning << u"WARNING"_s;
        QTest::newRow("critical") << Status::Critical << u"CRITICAL"_s;
    }
    void namesItsHealth()
    {
        QFETCH(Status, status);
        QFETCH(QString, rawValue);
        QCOMPARE(AnalyticsDataManager::rawValue(status), rawValue);
        QCOMPARE(AnalyticsDataManager::systemHealthStatus(rawValue), std::optional(status));
    }

    void takesNoOtherTextForAHealth_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("case's name") << u"healthy"_s;
        QTest::newRow("other letters") << u"Warning"_s;
        QTest::newRow("with a blank") << u"CRITICAL "_s;
    }
    void takesNoOtherTextForAHealth()
    {
        QFETCH(QString, text);
        QVERIFY(!AnalyticsDataManager::systemHealthStatus(text));
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_AnalyticsDataManager)
#include "tst_AnalyticsDataManager.moc"
