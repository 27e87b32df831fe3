#include "platform/MainQueue.h"

#include "support/PlatformEnvironment.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;
using testing::settle;

class tst_MainQueue : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    std::unique_ptr<QObject> m_context;
    QStringList m_ran;

    static MainQueue &queue() { return MainQueue::shared(); }
    void post(const QString &name) { queue().async(m_context.get(), note(name)); }
    void after(std::chrono::milliseconds delay, const QString &name)
    {
        queue().asyncAfter(delay, m_context.get(), note(name));
    }
    std::function<void()> note(const QString &name)
    {
        return [this, name] { m_ran.append(name); };
    }
    void turn(std::chrono::milliseconds by)
    {
        m_world->clock.advance(by);
        settle();
    }

private slots:
    void init()
    {
        m_world = std::make_unique<PlatformEnvironment>();
        m_context = std::make_unique<QObject>();
        m_ran.clear();
    }
    void cleanup() { m_world.reset(); }

    void runsPostedWorkInOrderAndNeverAtOnce()
    {
        post(u"first"_s);
        post(u"second"_s);
        QVERIFY(m_ran.isEmpty());
        settle();
        QCOMPARE(m_ran, QStringList({u"first"_s, u"second"_s}));
    }

    void runsDelayedWorkWhenItFallsDue()
    {
        after(2500ms, u"check"_s);
        after(1000ms, u"look"_s);
        turn(999ms);
        QVERIFY(m_ran.isEmpty());
        turn(1ms);
        QCOMPARE(m_ran, QStringList({u"look"_s}));
        turn(1500ms);
        QCOMPARE(m_ran, QStringList({u"look"_s, u"check"_s}));
    }

    void holdsWhatFallsDueAndRunsItInOrder()
    {
        after(1500ms, u"at 1.5 s"_s);
        after(3000ms, u"at 3.0 s"_s);
        after(2500ms, u"at 2.5 s"_s);
        turn(1000ms);
        queue().hold();
        QVERIFY(queue().isHeld());
        turn(1000ms);
        post(u"posted at 2.0 s"_s);
        settle();
        turn(2000ms);
        QVERIFY(m_ran.isEmpty());
        queue().release();
        QVERIFY(m_ran.isEmpty()); // who releases finishes first
        settle();
        QCOMPARE(m_ran, QStringList({u"at 1.5 s"_s, u"posted at 2.0 s"_s, u"at 2.5 s"_s, u"at 3.0 s"_s}));
    }

    void goesOnOnlyWithTheLastRelease()
    {
        queue().hold();
        queue().hold();
        post(u"work"_s);
        queue().release();
        settle();
        QVERIFY(m_ran.isEmpty());
        queue().release();
        settle();
        QCOMPARE(m_ran, QStringList({u"work"_s}));
    }

    void workThatHoldsStopsWhatStandsBehindIt()
    {
        queue().hold();
        queue().async(m_context.get(), [this] {
            m_ran.append(u"first"_s);
            queue().hold();
        });
        post(u"second"_s);
        queue().release();
        settle();
        QCOMPARE(m_ran, QStringList({u"first"_s}));
        queue().release();
        settle();
        QCOMPARE(m_ran, QStringList({u"first"_s, u"second"_s}));
    }

    void aHoldBetweenReleaseAndTheNextTurnStillHolds()
    {
        queue().hold();
        post(u"work"_s);
        settle();
        queue().release();
        queue().hold();
        settle();
        QVERIFY(m_ran.isEmpty());
        queue().release();
        settle();
        QCOMPARE(m_ran, QStringList({u"work"_s}));
    }

    void heldWorkGoesBeforeWhatFallsDueAfterTheRelease()
    {
        queue().hold();
        post(u"held"_s);
        settle();
        after(1000ms, u"due now"_s);
        queue().release();
        m_world->clock.advance(1000ms); // before the queue has come round
        QCOMPARE(m_ran, QStringList({u"held"_s, u"due now"_s}));
    }

    void workMayPostWork()
    {
        queue().async(m_context.get(), [this] {
            m_ran.append(u"first"_s);
            post(u"third"_s);
        });
        post(u"second"_s);
        settle();
        QCOMPARE(m_ran, QStringList({u"first"_s, u"second"_s, u"third"_s}));
    }

    void dropsWorkWithItsContext()
    {
        QObject stays;
        queue().hold();
        post(u"held"_s);
        settle();
        post(u"posted"_s);
        after(1000ms, u"delayed"_s);
        queue().async(&stays, note(u"of another context"_s));
        m_context.reset();
        queue().release();
        turn(2000ms);
        QCOMPARE(m_ran, QStringList({u"of another context"_s}));
    }

    void workMayEndItsContext()
    {
        queue().async(m_context.get(), [this] {
            m_ran.append(u"first"_s);
            m_context.reset();
        });
        post(u"second"_s);
        settle();
        QCOMPARE(m_ran, QStringList({u"first"_s}));
    }

    void runsNothingOnceTheEnvironmentIsGone()
    {
        post(u"posted"_s);
        after(0ms, u"delayed"_s);
        m_world.reset();
        settle();
        QVERIFY(m_ran.isEmpty());
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_MainQueue)
#include "tst_MainQueue.moc"
