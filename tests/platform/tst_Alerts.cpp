#include "platform/Alerts.h"

#include "platform/MainQueue.h"
#include "support/PlatformEnvironment.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmere {

using testing::PlatformEnvironment;
using testing::settle;

class tst_Alerts : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<PlatformEnvironment> m_world;
    QStringList m_happened;

    static Alerts &alerts() { return Alerts::shared(); }
    void present(const QString &title)
    {
        alerts().present(title, u"Text of "_s + title, {u"Yes"_s, u"No"_s}).then([this, title](int button) {
            m_happened.append(title + u" answered by %1"_s.arg(button));
        });
    }
    void after(std::chrono::milliseconds delay, const QString &name)
    {
        MainQueue::shared().asyncAfter(delay, this, [this, name] { m_happened.append(name); });
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
        m_happened.clear();
    }
    void cleanup()
    {
        m_world.reset();
        settle(); // an alert that is up ends with the environment, and must not do so in the next test
    }

    void showsNothingAtFirst()
    {
        QVERIFY(!alerts().isUp());
        QVERIFY(alerts().title().isEmpty());
        QVERIFY(alerts().buttons().isEmpty());
        alerts().answer(0);
        QVERIFY(!MainQueue::shared().isHeld());
    }

    void showsWhatItIsTold()
    {
        QSignalSpy changed(&alerts(), &Alerts::changed);
        present(u"Move?"_s);
        QCOMPARE(changed.size(), 1);
        QVERIFY(alerts().isUp());
        QCOMPARE(alerts().title(), u"Move?"_s);
        QCOMPARE(alerts().text(), u"Text of Move?"_s);
        QCOMPARE(alerts().buttons(), QStringList({u"Yes"_s, u"No"_s}));
    }

    void tellsWhichButtonWasPressed_data()
    {
        QTest::addColumn<int>("button");
        QTest::newRow("the first") << 0;
        QTest::newRow("the second") << 1;
    }
    void tellsWhichButtonWasPressed()
    {
        QFETCH(int, button);
        present(u"Move?"_s);
        QSignalSpy changed(&alerts(), &Alerts::changed);
        alerts().answer(button);
        QVERIFY(!alerts().isUp());
        QCOMPARE(changed.size(), 1);
        settle();
        QCOMPARE(m_happened, QStringList({u"Move? answered by %1"_s.arg(button)}));
    }

    void ignoresAButtonThatItDoesNotHave()
    {
        present(u"Move?"_s);
        alerts().answer(-1);
        alerts().answer(2);
        settle();
        QVERIFY(alerts().isUp());
        QVERIFY(m_happened.isEmpty());
    }

    void holdsWhatFallsDueUntilItIsAnswered()
    {
        MainQueue::shared().asyncAfter(1000ms, this, [this] { present(u"Move?"_s); });
        after(2500ms, u"session check"_s);
        after(3000ms, u"update check"_s);
        turn(1000ms);
        QVERIFY(alerts().isUp());
        MainQueue::shared().async(this, [this] { m_happened.append(u"posted"_s); });
        settle();
        turn(9000ms);
        QVERIFY(m_happened.isEmpty());
        alerts().answer(1);
        settle();
        QCOMPARE(m_happened.filter(u"answered"_s), QStringList({u"Move? answered by 1"_s}));
        m_happened.removeOne(u"Move? answered by 1"_s);
        QCOMPARE(m_happened, QStringList({u"posted"_s, u"session check"_s, u"update check"_s}));
    }

    void showsASecondAlertAfterTheFirst()
    {
        present(u"First"_s);
        present(u"Second"_s);
        after(0ms, u"work"_s);
        turn(0ms);
        QCOMPARE(alerts().title(), u"First"_s);
        alerts().answer(0);
        settle();
        QVERIFY(alerts().isUp());
        QCOMPARE(alerts().title(), u"Second"_s);
        QCOMPARE(m_happened, QStringList({u"First answered by 0"_s}));
        alerts().answer(1);
        settle();
        QVERIFY(!alerts().isUp());
        QVERIFY(m_happened.contains(u"Second answered by 1"_s));
        QVERIFY(m_happened.contains(u"work"_s));
    }

    void workThatRaisesAnAlertHoldsTheWorkBehindIt()
    {
        present(u"Move?"_s);
        MainQueue::shared().asyncAfter(1000ms, this, [this] { present(u"Update?"_s); });
        after(1000ms, u"work"_s);
        turn(1000ms);
        alerts().answer(1);
        settle();
        QCOMPARE(alerts().title(), u"Update?"_s);
        QVERIFY(!m_happened.contains(u"work"_s));
        alerts().answer(1);
        settle();
        QVERIFY(m_happened.contains(u"work"_s));
    }

    void endsUnansweredWithTheEnvironment()
    {
        present(u"Move?"_s);
        present(u"Update?"_s);
        m_world.reset();
        settle();
        QCOMPARE(m_happened, QStringList({u"Move? answered by -1"_s, u"Update? answered by -1"_s}));
    }
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_Alerts)
#include "tst_Alerts.moc"
