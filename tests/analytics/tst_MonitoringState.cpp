#include "analytics/monitoring/MonitoringState.h"

#include "analytics/AnalyticsDataManager.h"
#include "platform/SystemRandom.h"
#include "support/PlatformEnvironment.h"

#include <QSignalSpy>

#include <algorithm>

using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;
using testing::settle;

namespace {

// Always the same share of whatever interval it draws from.
class FixedRandom : public RandomSource {
public:
    explicit FixedRandom(double share) : m_share(share) { }

    double uniform(double lowest, double highest) override { return lowest + m_share * (highest - lowest); }
    int integer(int lowest, int highest) override { return int(uniform(lowest, highest)); }

private:
    double m_share;
};

} // namespace

class tst_MonitoringState : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;

    void drawsAlways(double share)
    {
        m_world->environment.makeRandomSource = [share] { return std::make_unique<FixedRandom>(share); };
    }
    void tick()
    {
        m_world->clock.advance(2s);
        settle();
    }

private slots:
    void init() { m_world = std::make_unique<PlatformEnvironment>(); }
    void cleanup() { m_world.reset(); }

    void drawsTwentyOneValuesAndSortsTheLargestFirst()
    {
        const MonitoringState state;
        SystemRandom random(1);
        QList<double> drawn;
        for (int i = 0; i < 21; ++i) {
            drawn.append(random.uniform(0.1, 0.3));
        }
        QVERIFY(!std::is_sorted(drawn.cbegin(), drawn.cend(), std::greater<>()));
        std::sort(drawn.begin(), drawn.end());
        std::reverse(drawn.begin(), drawn.end());
        QCOMPARE(state.lossCurve(), drawn);
        for (const double value : state.lossCurve()) {
            QVERIFY(value >= 0.1 && value <= 0.3);
        }
    }

    void showsTwentyBarsOfTheTwentyOneValues()
    {
        const MonitoringState state;
        QCOMPARE(state.lossCurve().size(), 21);
        QCOMPARE(state.lossBars().size(), 20);
        for (qsizetype i = 0; i < 20; ++i) {
            QCOMPARE(state.lossBars()[i], state.lossCurve()[i] * 3.0);
        }
    }

    void fillsNineTenthsOfTheHeightWithTheLargestDraw()
    {
        drawsAlways(1);
        const MonitoringState state;
        QCOMPARE(state.lossBars(), QList<double>(20, 0.3 * 3.0));
        QVERIFY(qAbs(state.lossBars()[0] - 0.9) < 1e-12);
    }

    void fillsThreeTenthsOfTheHeightWithTheSmallestDraw()
    {
        drawsAlways(0);
        const MonitoringState state;
        QCOMPARE(state.lossBars(), QList<double>(20, 0.1 * 3.0));
    }

    void drawsItsBarsAnewOnceForEachTick()
    {
        const MonitoringState state;
        QSignalSpy changed(&state, &MonitoringState::changed);
        QList<double> before = state.lossBars();
        for (int i = 1; i <= 5; ++i) {
            tick();
            QCOMPARE(changed.size(), i);
            QVERIFY(state.lossBars() != before);
            before = state.lossBars();
        }
    }

    void drawsItsBarsAnewWhenAFieldChangesThatItDoesNotShow()
    {
        const MonitoringState state;
        const QList<double> before = state.lossBars();
        // What a change of the requests a minute alone comes down to: all fields share one signal.
        emit AnalyticsDataManager::shared().changed();
        QVERIFY(state.lossBars() != before);
    }

    void leavesNothingRunningButTheManager()
    {
        auto state = std::make_unique<MonitoringState>();
        QCOMPARE(m_world->clock.scheduledCount(), 1); // the manager's
        state.reset();
        tick();
        QCOMPARE(m_world->clock.scheduledCount(), 1);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_MonitoringState)
#include "tst_MonitoringState.moc"
