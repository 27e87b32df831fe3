#include "analytics/training/TrainingTelemetryState.h"

#include "platform/SystemRandom.h"
#include "support/PlatformEnvironment.h"

#include <QSet>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;
using State = TrainingTelemetryState;

namespace {

// Draws the middle of every interval, and notes the intervals.
class Middle : public RandomSource {
public:
    explicit Middle(QList<QPair<double, double>> &intervals) : m_intervals(intervals) { }

    double uniform(double lowest, double highest) override
    {
        m_intervals.append({lowest, highest});
        return (lowest + highest) / 2;
    }
    int integer(int lowest, int highest) override { return (lowest + highest) / 2; }

private:
    QList<QPair<double, double>> &m_intervals;
};

} // namespace

class tst_TrainingTelemetryState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;

    void pass(int seconds) { m_world->clock.advance(std::chrono::seconds(seconds)); }

private slots:
    void init() { m_world = std::make_unique<PlatformEnvironment>(); }
    void cleanup() { m_world.reset(); }

    void beginsBlankForASecond()
    {
        State state;
        QCOMPARE(state.currentStep(), 1420);
        QCOMPARE(state.totalSteps(), 5000);
        QCOMPARE(state.currentEpoch(), 2);
        QCOMPARE(state.learningRate(), 0.0003);
        QCOMPARE(state.batchSize(), 32);
        QCOMPARE(state.dropout(), 0.1);
        QCOMPARE(state.gradientClipping(), 1.0);
        QVERIFY(state.earlyStopping());
        QVERIFY(!state.fastEval());
        m_world->clock.advance(999ms);
        QVERIFY(state.lossData().isEmpty() && state.valLossData().isEmpty() && state.learningRateData().isEmpty());
        m_world->clock.advance(1ms);
        QCOMPARE(state.lossData().size(), 1);
        QCOMPARE(state.valLossData().size(), 1);
        QCOMPARE(state.learningRateData().size(), 1);
        QCOMPARE(state.lossData().first().step, 1420.0);
        QCOMPARE(state.currentStep(), 1421);
    }

    void drawsForTheLossAndThenForTheValidation()
    {
        QList<QPair<double, double>> intervals;
        m_world->environment.makeRandomSource = [&] { return std::make_unique<Middle>(intervals); };
        State state;
        pass(2);
        QCOMPARE(intervals, (QList<QPair<double, double>>{{-0.05, 0.05}, {-0.03, 0.03}, {-0.05, 0.05}, {-0.03, 0.03}}));
    }

    void addsPointsByTheFormulas()
    {
        m_world->environment.makeRandomSource = [] { return std::make_unique<SystemRandom>(3); };
        State state;
        SystemRandom draws(3);
        for (int tick = 0; tick < 4000; ++tick) {
            pass(1);
            const double step = 1420 + tick;
            const double wave = std::sin(step / 100.0);
            const double n1 = draws.uniform(-0.05, 0.05);
            const double n2 = draws.uniform(-0.03, 0.03);
            QCOMPARE(state.lossData().last().step, step);
            QVERIFY(state.lossData().last().value == wave * 0.1 + 0.5 + n1);
            QVERIFY(state.valLossData().last().value == wave * 0.08 + 0.55 + n2);
            QVERIFY(state.learningRateData().last().value == (step / -5000.0 + 1.0) * 0.0003);
        }
        QCOMPARE(state.currentStep(), 5420);
    }

    void dropsTheOldestPointAtTheFiftyFirstTick()
    {
        State state;
        pass(50);
        QCOMPARE(state.lossData().size(), 50);
        QCOMPARE(state.lossData().first().step, 1420.0);
        pass(1);
        for (const auto *series : {&state.lossData(), &state.valLossData(), &state.learningRateData()}) {
            QCOMPARE(series->size(), 50);
            QCOMPARE(series->first().step, 1421.0);
            QCOMPARE(series->last().step, 1470.0);
        }
    }

    void givesEachPointAnIdentityOfItsOwn()
    {
        State state;
        pass(50);
        QSet<QUuid> ids;
        for (const auto *series : {&state.lossData(), &state.valLossData(), &state.learningRateData()}) {
            for (const TelemetryPoint &point : *series) {
                ids.insert(point.id);
            }
        }
        QCOMPARE(ids.size(), 150);
        const QUuid kept = state.lossData().at(1).id;
        pass(1);
        QCOMPARE(state.lossData().first().id, kept);
    }

    void handsChartsTheSamePoints()
    {
        State state;
        pass(60);
        QCOMPARE(state.lossPoints().size(), 50);
        QCOMPARE(state.lossPoints().last(), QPointF(state.lossData().last().step, state.lossData().last().value));
        QCOMPARE(state.valLossPoints().first().y(), state.valLossData().first().value);
        QCOMPARE(state.learningRatePoints().at(7).y(), state.learningRateData().at(7).value);
    }

    void bendsTheLearningRateForNewPointsOnly()
    {
        State state;
        pass(3);
        const auto before = state.learningRatePoints();
        state.setLearningRate(0.00001);
        QCOMPARE(state.learningRatePoints(), before);
        pass(1);
        QCOMPARE(state.learningRatePoints().first(3), before);
        QVERIFY(state.learningRateData().last().value == (1423.0 / -5000.0 + 1.0) * 0.00001);
        QCOMPARE(QString::number(state.learningRateData().last().value, 'f', 7), u"0.0000072"_s);
    }

    void fallsToZeroAtStep5000AndBelowItLater()
    {
        State state;
        pass(5000 - 1420 + 1);
        QCOMPARE(state.learningRateData().last().step, 5000.0);
        QCOMPARE(state.learningRateData().last().value, 0.0);
        pass(1000);
        QCOMPARE(state.learningRateData().last().step, 6000.0);
        QVERIFY(state.learningRateData().last().value < 0);
        QCOMPARE(state.learningRateData().last().value, -0.2 * 0.0003);
    }

    void stepsTheBatchSizeBelowZero()
    {
        State state;
        for (int i = 0; i < 7; ++i) {
            state.stepBatchSize(-1);
        }
        QCOMPARE(state.batchSize(), 4);
        state.stepBatchSize(-1);
        QCOMPARE(state.batchSize(), 0);
        state.stepBatchSize(-1);
        QCOMPARE(state.batchSize(), -4);
        state.stepBatchSize(1);
        state.stepBatchSize(1);
        QCOMPARE(state.batchSize(), 4);
    }

    void goesOnWhateverTheOtherControlsSay()
    {
        State plain;
        State other;
        other.setEarlyStopping(false);
        other.setFastEval(true);
        other.setDropout(0.5);
        other.setGradientClipping(5);
        other.stepBatchSize(1);
        pass(30);
        QVERIFY(!other.earlyStopping());
        QVERIFY(other.fastEval());
        QCOMPARE(other.dropout(), 0.5);
        QCOMPARE(other.gradientClipping(), 5.0);
        QCOMPARE(other.lossPoints(), plain.lossPoints());
        QCOMPARE(other.valLossPoints(), plain.valLossPoints());
        QCOMPARE(other.learningRatePoints(), plain.learningRatePoints());
    }

    void announcesAWriteBeforeIt()
    {
        State state;
        QStringList fields;
        connect(&state, &Observable::willChange, this, [&](const QString &field) {
            fields.append(field);
            if (field == u"lossData"_s) {
                QVERIFY(state.lossData().isEmpty());
            }
            if (field == u"currentStep"_s) {
                QCOMPARE(state.currentStep(), 1420);
            }
        });
        pass(1);
        QCOMPARE(fields.join(u' '), u"lossData valLossData learningRateData currentStep"_s);
    }

    void startsAfreshAndLeavesNoTimerBehind()
    {
        {
            State state;
            state.setLearningRate(0.001);
            pass(10);
        }
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        State again;
        QCOMPARE(again.currentStep(), 1420);
        QCOMPARE(again.learningRate(), 0.0003);
        QVERIFY(again.lossData().isEmpty());
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_TrainingTelemetryState)
#include "tst_TrainingTelemetryState.moc"
