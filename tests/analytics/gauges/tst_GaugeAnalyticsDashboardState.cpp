#include "analytics/gauges/GaugeAnalyticsDashboardState.h"

#include "platform/SystemRandom.h"
#include "support/PlatformEnvironment.h"

#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;
using State = GaugeAnalyticsDashboardState;

namespace {

// Always draws the same end of the interval, and notes the intervals.
class OneSided : public RandomSource {
public:
    OneSided(bool highest, QList<QPair<double, double>> &intervals) : m_highest(highest), m_intervals(intervals) { }

    double uniform(double lowest, double highest) override
    {
        m_intervals.append({lowest, highest});
        return m_highest ? highest : lowest;
    }
    int integer(int lowest, int highest) override { return m_highest ? highest : lowest; }

private:
    bool m_highest;
    QList<QPair<double, double>> &m_intervals;
};

QList<double> walkedValues(const State &state)
{
    return {state.gpuTemp(), state.vramUsage(), state.gpuLoad(), state.fanSpeed(), state.cpuUtil(), state.throughput(),
        state.loss(), state.modelConfidence()};
}

QList<double> fixedValues(const State &state)
{
    return {state.memoryUsage(), state.diskSpeed(), state.netSpeed(), state.trainingSpeed(), state.gradientNorm(),
        state.dataQuality(), state.rejectionRate()};
}

const QList<double> walkedAtFirst{65, 8.2, 45, 1200, 32, 3200, 0.45, 0.88};
const QList<double> fixedAtFirst{12.4, 450, 25, 4.5, 1.2, 92, 2.5};

} // namespace

class tst_GaugeAnalyticsDashboardState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    QList<QPair<double, double>> m_intervals;

    void drawsAlways(bool highest)
    {
        m_world->environment.makeRandomSource = [this, highest] {
            return std::make_unique<OneSided>(highest, m_intervals);
        };
    }

private slots:
    void init()
    {
        m_world = std::make_unique<PlatformEnvironment>();
        m_intervals.clear();
    }
    void cleanup() { m_world.reset(); }

    void beginsWithItsFiguresAndKeepsThemForHalfASecond()
    {
        State state;
        QCOMPARE(walkedValues(state), walkedAtFirst);
        QCOMPARE(fixedValues(state), fixedAtFirst);
        QVERIFY(!state.isPerformanceMode());
        m_world->clock.advance(499ms);
        QCOMPARE(walkedValues(state), walkedAtFirst);
        m_world->clock.advance(1ms);
        QVERIFY(walkedValues(state) != walkedAtFirst);
    }

    void drawsForTheLossBeforeTheConfidence()
    {
        drawsAlways(true);
        State state;
        m_world->clock.advance(500ms);
        QCOMPARE(m_intervals,
            (QList<QPair<double, double>>{
                {-1.5, 1.5}, {-0.1, 0.1}, {-5, 5}, {-50, 50}, {-2, 2}, {-100, 100}, {-0.01, 0.01}, {-0.01, 0.01}}));
        QCOMPARE(walkedValues(state),
            (QList<double>{65 + 1.5, 8.2 + 0.1, 45 + 5, 1200 + 50, 32 + 2, 3200 + 100, 0.45 + 0.01, 0.88 + 0.01}));
    }

    void announcesEachFigureBeforeItIsWritten()
    {
        State state;
        QStringList fields;
        connect(&state, &Observable::willChange, this, [&](const QString &field) {
            if (fields.isEmpty()) {
                QCOMPARE(state.gpuTemp(), 65.0);
            }
            fields.append(field);
        });
        m_world->clock.advance(500ms);
        QCOMPARE(fields.join(u' '), u"gpuTemp vramUsage gpuLoad fanSpeed cpuUtil throughput loss modelConfidence"_s);
    }

    void walksAThousandStepsByTheFormulas()
    {
        m_world->environment.makeRandomSource = [] { return std::make_unique<SystemRandom>(7); };
        State state;
        SystemRandom draws(7);
        struct Walk {
            double value, step, lowest, highest;
        };
        QList<Walk> walks{{65, 1.5, 40, 95}, {8.2, 0.1, 4, 24}, {45, 5, 0, 100}, {1200, 50, 800, 4500}, {32, 2, 5, 100},
            {3200, 100, 1000, 5000}, {0.45, 0.01, 0.1, 2.5}, {0.88, 0.01, 0.5, 0.99}};
        for (int tick = 0; tick < 1000; ++tick) {
            m_world->clock.advance(500ms);
            QList<double> expected;
            for (Walk &walk : walks) {
                walk.value = std::clamp(walk.value + draws.uniform(-walk.step, walk.step), walk.lowest, walk.highest);
                expected.append(walk.value);
            }
            QCOMPARE(walkedValues(state), expected);
        }
        QCOMPARE(fixedValues(state), fixedAtFirst);
    }

    void staysAtItsLowerBounds()
    {
        drawsAlways(false);
        State state;
        m_world->clock.advance(500ms * 100);
        QCOMPARE(walkedValues(state), (QList<double>{40, 4, 0, 800, 5, 1000, 0.1, 0.5}));
    }

    void reachesTheMemorysWholeSizeAndNeverGoesOver()
    {
        drawsAlways(true);
        State state;
        QSignalSpy vram(&state, &State::vramUsageChanged);
        m_world->clock.advance(500ms * 300);
        QCOMPARE(state.vramUsage(), 24.0);
        QCOMPARE(walkedValues(state), (QList<double>{95, 24, 100, 4500, 100, 5000, 2.5, 0.99}));
        // 8.2 to 24 by tenths; after that nothing changes.
        QVERIFY(vram.size() <= 159);
    }

    void leavesABoundOnTheNextDrawTheOtherWay()
    {
        drawsAlways(false);
        State low;
        m_world->clock.advance(500ms * 20);
        QCOMPARE(low.gpuLoad(), 0.0);
        bool highest = false;
        // The second state's draws can be turned round.
        struct Turning : RandomSource {
            explicit Turning(bool &up) : up(up) { }
            double uniform(double lowest, double highest) override { return up ? highest : lowest; }
            int integer(int lowest, int highest) override { return up ? highest : lowest; }
            bool &up;
        };
        m_world->environment.makeRandomSource = [&] { return std::make_unique<Turning>(highest); };
        State state;
        m_world->clock.advance(500ms * 20);
        QCOMPARE(state.gpuLoad(), 0.0);
        highest = true;
        m_world->clock.advance(500ms);
        QCOMPARE(state.gpuLoad(), 5.0);
    }

    void performanceModeMovesAndChangesNothingElse()
    {
        State plain;
        State fast;
        QSignalSpy changed(&fast, &State::isPerformanceModeChanged);
        fast.setIsPerformanceMode(true);
        QVERIFY(fast.isPerformanceMode());
        QCOMPARE(changed.size(), 1);
        for (int tick = 0; tick < 20; ++tick) {
            m_world->clock.advance(500ms);
            QCOMPARE(walkedValues(fast), walkedValues(plain));
        }
        fast.setIsPerformanceMode(false);
        QVERIFY(!fast.isPerformanceMode());
    }

    void startsAfreshAndLeavesNoTimerBehind()
    {
        {
            State state;
            m_world->clock.advance(10s);
            QCOMPARE(m_world->clock.scheduledCount(), 1);
        }
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        State again;
        QCOMPARE(walkedValues(again), walkedAtFirst);
    }
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_GaugeAnalyticsDashboardState)
#include "tst_GaugeAnalyticsDashboardState.moc"
