#include "platform/SystemClock.h"

#include <QAbstractEventDispatcher>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

class tst_SystemClock : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<SystemClock> m_clock;
    QStringList m_ran;

    std::function<void()> note(const QString &name)
    {
        return [this, name] { m_ran.append(name); };
    }
    bool ran(qsizetype count)
    {
        return QTest::qWaitFor([this, count] { return m_ran.size() >= count; }, 30'000);
    }

private slots:
    void init()
    {
        m_clock = std::make_unique<SystemClock>();
        m_ran.clear();
    }

    void tellsTheTimeInUtc()
    {
        const QDateTime before = QDateTime::currentDateTimeUtc();
        const QDateTime now = m_clock->now();
        QCOMPARE(now.timeSpec(), Qt::UTC);
        QVERIFY(before <= now && now <= QDateTime::currentDateTimeUtc());
    }

    void runsAnActionOnceAndNeverEarly()
    {
        const auto start = m_clock->uptime();
        std::chrono::milliseconds end{0};
        m_clock->schedule(30ms, [&] {
            end = m_clock->uptime();
            m_ran.append(u"first"_s);
        });
        m_clock->schedule(90ms, note(u"second"_s));
        QVERIFY(ran(2));
        QCOMPARE(m_ran, QStringList({u"first"_s, u"second"_s}));
        QCOMPARE(QAbstractEventDispatcher::instance()->registeredTimers(m_clock.get()).size(), 0);
        QVERIFY2(end - start >= 30ms, QByteArray::number(qint64((end - start).count())));
    }

    void asksForTimersThatKeepToTheMillisecond()
    {
        m_clock->schedule(2s, note(u"due"_s));
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(m_clock.get());
        QCOMPARE(timers.size(), 1);
        QCOMPARE(timers.constFirst().timerType, Qt::PreciseTimer);
        QCOMPARE(timers.constFirst().interval, 2000);
    }

    void runsNothingBeforeTheEventLoopComesRound()
    {
        m_clock->schedule(0ms, note(u"zero"_s));
        m_clock->schedule(-5ms, note(u"below zero"_s));
        QVERIFY(m_ran.isEmpty());
        QVERIFY(ran(2));
        QCOMPARE(m_ran, QStringList({u"zero"_s, u"below zero"_s}));
    }

    void runsInTheOrderInWhichActionsFallDue()
    {
        m_clock->schedule(40ms, note(u"late"_s));
        m_clock->schedule(20ms, note(u"soon"_s));
        m_clock->schedule(20ms, note(u"soon, but asked for later"_s));
        QVERIFY(ran(3));
        QCOMPARE(m_ran, QStringList({u"soon"_s, u"soon, but asked for later"_s, u"late"_s}));
    }

    void keepsTheOrderWhenTheEventLoopIsLate()
    {
        m_clock->schedule(20ms, note(u"second"_s));
        m_clock->schedule(5ms, note(u"first"_s));
        const auto start = m_clock->uptime();
        while (m_clock->uptime() - start < 30ms) { }
        QVERIFY(ran(2));
        QCOMPARE(m_ran, QStringList({u"first"_s, u"second"_s}));
    }

    void forgetsACanceledAction()
    {
        const Clock::Timer timer = m_clock->schedule(1ms, note(u"canceled"_s));
        m_clock->cancel(timer);
        m_clock->schedule(10ms, note(u"other"_s));
        QVERIFY(ran(1));
        QCOMPARE(m_ran, QStringList({u"other"_s}));
    }

    void cancelingWhatHasRunHarmsNoOther()
    {
        const Clock::Timer first = m_clock->schedule(0ms, note(u"first"_s));
        QVERIFY(ran(1));
        // So many that the event loop's own numbers for timers come round.
        constexpr int many = 1000;
        for (int i = 0; i < many; ++i) {
            const qsizetype before = m_ran.size();
            m_clock->schedule(0ms, note(u"next"_s));
            m_clock->cancel(first);
            QVERIFY(ran(before + 1));
        }
        m_clock->cancel(0);
        m_clock->cancel(~Clock::Timer(0));
    }

    void actionsMayScheduleAndCancel()
    {
        Clock::Timer doomed = 0;
        m_clock->schedule(1ms, [&] {
            m_clock->cancel(doomed);
            m_clock->schedule(20ms, note(u"last"_s));
            m_clock->schedule(0ms, note(u"nested"_s));
        });
        doomed = m_clock->schedule(1ms, note(u"doomed"_s));
        QVERIFY(ran(2));
        QCOMPARE(m_ran, QStringList({u"nested"_s, u"last"_s}));
    }

    void takesItsActionsWithIt()
    {
        m_clock->schedule(0ms, note(u"lost"_s));
        m_clock = std::make_unique<SystemClock>();
        m_clock->schedule(5ms, note(u"kept"_s));
        QVERIFY(ran(1));
        QCOMPARE(m_ran, QStringList({u"kept"_s}));
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_SystemClock)
#include "tst_SystemClock.moc"
