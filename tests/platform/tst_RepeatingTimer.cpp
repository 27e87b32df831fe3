#include "platform/RepeatingTimer.h"

#include "platform/MainQueue.h"
#include "support/PlatformEnvironment.h"

#include <array>
#include <optional>

using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;

class tst_RepeatingTimer : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    std::optional<RepeatingTimer> m_timer;
    QList<qint64> m_beats; // in milliseconds of the clock's uptime

    void start(std::chrono::milliseconds interval)
    {
        m_timer.emplace(interval, [this] { m_beats.append(m_world->clock.uptime().count()); });
    }

private slots:
    void init()
    {
        m_world = std::make_unique<PlatformEnvironment>();
        m_beats.clear();
    }
    void cleanup()
    {
        m_timer.reset();
        m_world.reset();
    }

    void firesFirstWhenOneIntervalHasPassed()
    {
        start(2s);
        QVERIFY(m_beats.isEmpty());
        m_world->clock.advance(1'999ms);
        QVERIFY(m_beats.isEmpty());
        m_world->clock.advance(1ms);
        QCOMPARE(m_beats, QList<qint64>{2000});
    }

    void firesAgainAndAgain()
    {
        start(500ms);
        m_world->clock.advance(2'250ms);
        QCOMPARE(m_beats, QList<qint64>({500, 1000, 1500, 2000}));
    }

    void keepsToItsBeatAfterALateRun()
    {
        start(1s);
        m_world->clock.advance(900ms);
        m_world->clock.stall(300ms);
        m_world->clock.advance(0ms);
        QCOMPARE(m_beats, QList<qint64>{1200});
        m_world->clock.advance(2s);
        QCOMPARE(m_beats, QList<qint64>({1200, 2000, 3000}));
    }

    void makesUpForOneBeatOfALongStall()
    {
        start(1s);
        m_world->clock.stall(10'300ms);
        m_world->clock.advance(0ms);
        QCOMPARE(m_beats, QList<qint64>{10'300});
        m_world->clock.advance(1s);
        QCOMPARE(m_beats, QList<qint64>({10'300, 11'000}));
    }

    void firesOnceWhereAStallEndsOnABeat()
    {
        start(1s);
        m_world->clock.stall(3s);
        m_world->clock.advance(0ms);
        QCOMPARE(m_beats, QList<qint64>{3000});
        m_world->clock.advance(1s);
        QCOMPARE(m_beats, QList<qint64>({3000, 4000}));
    }

    void leavesNothingBehindWithItsOwner()
    {
        start(1s);
        m_world->clock.advance(1500ms);
        m_timer.reset();
        QCOMPARE(m_world->clock.scheduledCount(), 0);
        m_world->clock.advance(5s);
        QCOMPARE(m_beats.size(), 1);
    }

    void mayBeEndedByItsOwnAction()
    {
        int runs = 0;
        // Larger than what a function object holds in itself, so that its end frees what the action stands in.
        const std::array<qint64, 16> ballast{};
        m_timer.emplace(1s, [this, &runs, ballast] {
            m_timer.reset();
            runs += 1 + int(ballast.back());
        });
        m_world->clock.advance(5s);
        QCOMPARE(runs, 1);
        QCOMPARE(m_world->clock.scheduledCount(), 0);
    }

    void goesOnWhileAnAlertHoldsTheQueue()
    {
        start(1s);
        MainQueue::shared().hold();
        m_world->clock.advance(3s);
        QCOMPARE(m_beats.size(), 3);
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_RepeatingTimer)
#include "tst_RepeatingTimer.moc"
