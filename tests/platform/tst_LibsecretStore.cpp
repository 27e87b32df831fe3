#include "platform/LibsecretStore.h"

#include "Keyring.h"
#include "KeyringProcess.h"
#include "SilentPrompter.h"
#include "support/BareBus.h"

#include <QCoroTask>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;
using quillmere::testing::BareBus;

namespace quillmere {

namespace {

// A read on its way.
class Read {
public:
    Read(LibsecretStore &store, const QString &account) : m_answer(std::make_shared<std::optional<Secret>>())
    {
        store.read(account).then([answer = m_answer](const Secret &secret) { *answer = secret; });
    }

    bool isAnswered() const { return m_answer->has_value(); }
    // "absent", or the value after "=".
    QString answer() const
    {
        if (!QTest::qWaitFor([this] { return isAnswered(); }, 30'000)) {
            return u"unanswered"_s;
        }
        return **m_answer ? u'=' + ***m_answer : u"absent"_s;
    }

private:
    using Secret = std::optional<QString>;
    std::shared_ptr<std::optional<Secret>> m_answer;
};

void say(const QByteArray &line)
{
    std::puts(line.constData());
    std::fflush(stdout);
}

// What this program does as "--store": uses the store in whatever surroundings it was started, while a ticker shows that the
// event loop goes round, and tells in lines what happened. With "patient" it waits for the answer of its read.
int useStore(bool patient)
{
    int ticks = 0;
    int longGaps = 0;
    QElapsedTimer sinceTick;
    sinceTick.start();
    QTimer ticker;
    ticker.setTimerType(Qt::PreciseTimer);
    QObject::connect(&ticker, &QTimer::timeout, [&] {
        ++ticks;
        longGaps += sinceTick.restart() > 2000;
    });
    ticker.start(1);

    auto store = std::make_unique<LibsecretStore>();
    store->save(u"value"_s, u"account"_s);
    store->remove(u"other"_s);
    const Read read(*store, u"account"_s);
    if (patient) {
        say("read: " + read.answer().toUtf8());
    }
    const bool ticked = QTest::qWaitFor([&] { return ticks >= 50; }, 30'000);
    say(ticked && longGaps <= 1 ? "event loop: free" : "event loop: blocked");
    say(read.isAnswered() ? "before the end: answered" : "before the end: unanswered");

    QElapsedTimer end;
    end.start();
    store.reset();
    say(end.elapsed() < 10'000 ? "end: prompt" : "end: late");
    say("after the end: " + read.answer().toUtf8());
    return 0;
}

// "--locked": as above, with a keyring that is locked and holds a value.
int useLockedStore()
{
    say(keyring::stores("account", "kept") && keyring::locks() ? "locked: yes" : "locked: no");
    return useStore(true);
}

// Turns the event loop so many times while the reads have no answer; false if one has, or if the loop stands still.
bool turnsUnanswered(const QList<Read> &reads)
{
    int turns = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&] { ++turns; });
    ticker.start(0);
    return QTest::qWaitFor([&] { return turns >= 500; }, 30'000)
        && std::none_of(reads.cbegin(), reads.cend(), [](const Read &read) { return read.isAnswered(); });
}

// "--slow": a keyring that takes its time over everything, and then does it in order.
int useSlowKeyring()
{
    LibsecretStore store;
    store.save(u"old"_s, u"account"_s);
    say("at first: " + Read(store, u"account"_s).answer().toUtf8());
    const keyring::Process keyring;
    say(keyring.stops() ? "stopped" : "not stopped");
    QList<Read> reads;
    reads.append(Read(store, u"account"_s));
    store.save(u"new"_s, u"account"_s);
    reads.append(Read(store, u"account"_s));
    store.remove(u"account"_s);
    reads.append(Read(store, u"account"_s));
    say(turnsUnanswered(reads) ? "event loop: free" : "event loop: blocked");
    keyring.goesOn();
    for (const Read &read : reads) {
        say("then: " + read.answer().toUtf8());
    }
    return 0;
}

// "--dying": a keyring that dies amid a call and is started anew.
int useDyingKeyring()
{
    LibsecretStore store;
    store.save(u"kept"_s, u"account"_s);
    say("at first: " + Read(store, u"account"_s).answer().toUtf8());
    const keyring::Process keyring;
    say(keyring.stops() ? "stopped" : "not stopped");
    const Read read(store, u"account"_s);
    say(turnsUnanswered({read}) ? "event loop: free" : "event loop: blocked");
    say(keyring.dies() ? "died" : "lives");
    say("in mid-call: " + read.answer().toUtf8());
    // The bus starts another one for whoever asks, which is locked at first.
    say("locked: " + Read(store, u"account"_s).answer().toUtf8());
    say(keyring::unlocks() ? "unlocked" : "not unlocked");
    say("again: " + Read(store, u"account"_s).answer().toUtf8());
    store.save(u"new"_s, u"account"_s);
    say("changed: " + Read(store, u"account"_s).answer().toUtf8());
    return 0;
}

// "--unlocked-later": a keyring that is locked at first.
int useKeyringUnlockedLater()
{
    LibsecretStore store;
    store.save(u"kept"_s, u"account"_s);
    say("at first: " + Read(store, u"account"_s).answer().toUtf8());
    say(keyring::locks() ? "locked" : "not locked");
    store.save(u"lost"_s, u"other account"_s);
    say("locked: " + Read(store, u"account"_s).answer().toUtf8());
    say(keyring::unlocks() ? "unlocked" : "not unlocked");
    say("unlocked: " + Read(store, u"account"_s).answer().toUtf8());
    say("unlocked, other: " + Read(store, u"other account"_s).answer().toUtf8());
    store.remove(u"account"_s);
    say("removed: " + Read(store, u"account"_s).answer().toUtf8());
    return 0;
}

// "--prompting": a locked keyring that has somebody asked who does not answer, until the question is withdrawn.
int usePromptingKeyring()
{
    LibsecretStore store;
    store.save(u"kept"_s, u"account"_s);
    say("at first: " + Read(store, u"account"_s).answer().toUtf8());
    say(keyring::locks() ? "locked" : "not locked");
    auto prompter = std::make_unique<keyring::SilentPrompter>();
    const Read read(store, u"account"_s);
    say(QTest::qWaitFor([&] { return prompter->isAsked(); }, 30'000) ? "asked" : "not asked");
    say(turnsUnanswered({read}) ? "event loop: free" : "event loop: blocked");
    say(keyring::unlocks() ? "unlocked" : "not unlocked");
    prompter.reset();
    say("withdrawn: " + read.answer().toUtf8());
    say("then: " + Read(store, u"account"_s).answer().toUtf8());
    return 0;
}

// "--silent-prompter": stands still altogether once it is asked.
int keepPromptsSilent()
{
    const keyring::SilentPrompter prompter;
    say(prompter.stands() ? "stands" : "does not stand");
    const bool asked = QTest::qWaitFor([&] { return prompter.isAsked(); }, 30'000);
    say(asked ? "asked" : "not asked");
    std::raise(SIGSTOP);
    return 0;
}

// "--silent-service": takes the Secret Service's name and never says a word.
int keepSilent()
{
    const bool taken = QDBusConnection::sessionBus().registerService(u"org.freedesktop.secrets"_s);
    say(taken ? "taken" : "not taken");
    std::raise(SIGSTOP);
    return 0;
}

// "--outlive": reads, waits for a line (while the bus goes away), reads again.
int outliveBus()
{
    LibsecretStore store;
    say("first: " + Read(store, u"account"_s).answer().toUtf8());
    std::getchar();
    say("second: " + Read(store, u"account"_s).answer().toUtf8());
    return 0;
}

// This program in another mode, in surroundings of its own.
class Child {
public:
    Child(const QString &mode, const QString &busAddress)
    {
        start({QCoreApplication::applicationFilePath(), mode}, busAddress);
    }
    // With an unlocked keyring of its own.
    explicit Child(const QString &mode)
    {
        start({QStringLiteral(QUILLMERE_WITH_KEYRING), QCoreApplication::applicationFilePath(), mode}, {});
    }
    ~Child()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished();
        }
    }
    Q_DISABLE_COPY_MOVE(Child)

    bool says(const QByteArray &line)
    {
        return QTest::qWaitFor(
            [&] {
                m_said += m_process.readAllStandardOutput();
                return m_said.contains(line + '\n');
            },
            30'000);
    }
    void hears(const QByteArray &line) { m_process.write(line + '\n'); }
    bool ends()
    {
        return QTest::qWaitFor([&] { return m_process.state() == QProcess::NotRunning; }, 30'000)
            && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }
    QByteArrayList lines()
    {
        ends();
        m_said += m_process.readAllStandardOutput();
        return m_said.trimmed().split('\n');
    }

private:
    void start(QStringList command, const QString &busAddress)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress);
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        const QString program = command.takeFirst();
        m_process.start(program, command);
    }

    QProcess m_process;
    QByteArray m_said;
};

// "--prompting-to-the-end": a locked keyring that has somebody asked who neither answers nor takes the question back.
int useKeyringPromptingToTheEnd()
{
    say(keyring::stores("account", "kept") && keyring::locks() ? "locked" : "not locked");
    Child prompter(u"--silent-prompter"_s, qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    say(prompter.says("stands") ? "stands" : "does not stand");
    auto store = std::make_unique<LibsecretStore>();
    const Read read(*store, u"account"_s);
    say(prompter.says("asked") ? "asked" : "not asked");
    say(turnsUnanswered({read}) ? "event loop: free" : "event loop: blocked");
    QElapsedTimer end;
    end.start();
    store.reset();
    say(end.elapsed() < 10'000 ? "end: prompt" : "end: late");
    return 0;
}

const QByteArrayList absentAndPrompt{
    "read: absent", "event loop: free", "before the end: answered", "end: prompt", "after the end: absent"};

} // namespace

class tst_LibsecretStore : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<LibsecretStore> m_store;
    QString m_account;

    QString read() { return Read(*m_store, m_account).answer(); }

    void has(int items, const std::string &bytes)
    {
        for (int number = 0; number < items; ++number) {
            QVERIFY(keyring::storesBeside(m_account.toStdString(), bytes, number));
        }
    }

private slots:
    void init()
    {
        m_store = std::make_unique<LibsecretStore>();
        // An account of its own for each test, so that they do not meet in the one keyring.
        m_account =
            QString::fromLatin1(QTest::currentTestFunction()) + u'/' + QString::fromUtf8(QTest::currentDataTag());
    }
    void cleanup()
    {
        m_store->remove(m_account);
        m_store.reset();
    }

    void givesBackWhatItKeeps_data()
    {
        QTest::addColumn<QString>("value");
        QTest::newRow("a token") << u"qm_3f2a.b-c_d~e+f/g="_s;
        QTest::newRow("letters beyond ASCII") << u"é ß 漢 😀"_s;
        QTest::newRow("line ends") << u" a\nb\r\n"_s;
        QTest::newRow("long") << QString(20'000, u'x');
        QTest::newRow("empty") << u""_s;
        QTest::newRow("a NUL in it") << u"token\0Bearer"_s;
    }
    void givesBackWhatItKeeps()
    {
        QFETCH(QString, value);
        m_store->save(value, m_account);
        QCOMPARE(read(), u'=' + value);
    }

    void readsAnUnknownAccountAsAbsent() { QCOMPARE(read(), u"absent"_s); }

    void tellsAnEmptyTextFromNone()
    {
        m_store->save({}, m_account);
        QCOMPARE(read(), u"="_s);
        m_store->remove(m_account);
        QCOMPARE(read(), u"absent"_s);
    }

    void aSecondSaveReplacesTheFirst()
    {
        m_store->save(u"first"_s, m_account);
        m_store->save(u"second"_s, m_account);
        QCOMPARE(read(), u"=second"_s);
        QCOMPARE(keyring::itemCount(m_account.toStdString()), 1);
    }

    void removesAnItem()
    {
        m_store->save(u"value"_s, m_account);
        m_store->remove(m_account);
        QCOMPARE(read(), u"absent"_s);
        QCOMPARE(keyring::itemCount(m_account.toStdString()), 0);
    }

    void toRemoveAnUnknownAccountDoesNothing()
    {
        m_store->save(u"stays"_s, m_account);
        m_store->remove(m_account + u"/other"_s);
        QCOMPARE(read(), u"=stays"_s);
    }

    void accountsDoNotMeet()
    {
        m_store->save(u"one"_s, m_account);
        m_store->save(u"other"_s, m_account + u"/other"_s);
        QCOMPARE(read(), u"=one"_s);
        QCOMPARE(Read(*m_store, m_account + u"/other"_s).answer(), u"=other"_s);
        m_store->remove(m_account + u"/other"_s);
        QCOMPARE(read(), u"=one"_s);
    }

    void worksInTheOrderInWhichItIsAsked()
    {
        const Read before(*m_store, m_account);
        m_store->save(u"first"_s, m_account);
        const Read first(*m_store, m_account);
        m_store->save(u"second"_s, m_account);
        const Read second(*m_store, m_account);
        m_store->remove(m_account);
        const Read after(*m_store, m_account);
        QVERIFY(!after.isAnswered());
        QCOMPARE(after.answer(), u"absent"_s);
        QCOMPARE(before.answer(), u"absent"_s);
        QCOMPARE(first.answer(), u"=first"_s);
        QCOMPARE(second.answer(), u"=second"_s);
    }

    void whatWasSaidJustBeforeTheEndIsDone()
    {
        m_store->save(u"last words"_s, m_account);
        const Read waiting(*m_store, m_account);
        m_store = std::make_unique<LibsecretStore>();
        QCOMPARE(read(), u"=last words"_s);
        QCOMPARE(waiting.answer(), u"=last words"_s);
    }

    void findsAnItemOfAnotherProgram()
    {
        QVERIFY(keyring::stores(m_account.toStdString(), "from elsewhere"));
        QCOMPARE(read(), u"=from elsewhere"_s);
    }

    void replacesAnItemOfAnotherProgram()
    {
        QVERIFY(keyring::stores(m_account.toStdString(), "from elsewhere"));
        m_store->save(u"ours"_s, m_account);
        QCOMPARE(read(), u"=ours"_s);
        QCOMPARE(keyring::itemCount(m_account.toStdString()), 1);
    }

    void labelsAnItemByItsAccount()
    {
        m_store->save(u"value"_s, m_account);
        QCOMPARE(read(), u"=value"_s);
        QCOMPARE(QString::fromStdString(keyring::label(m_account.toStdString())), m_account);
    }

    void readsAnItemThatIsNoTextAsAbsent()
    {
        QVERIFY(keyring::stores(m_account.toStdString(), "a\xff\xfe"));
        QCOMPARE(read(), u"absent"_s);
    }

    void replacesAnItemThatIsNoText()
    {
        QVERIFY(keyring::stores(m_account.toStdString(), "a\xff\xfe"));
        m_store->save(u"text"_s, m_account);
        QCOMPARE(read(), u"=text"_s);
        QCOMPARE(keyring::itemCount(m_account.toStdString()), 1);
    }

    // In two collections.
    void readsOneOfManyItems()
    {
        has(60, "one of many");
        QCOMPARE(read(), u"=one of many"_s);
        QCOMPARE(keyring::itemCount(m_account.toStdString()), 60);
    }

    void replacesManyItemsByOne()
    {
        has(60, "one of many");
        m_store->save(u"the one"_s, m_account);
        QCOMPARE(read(), u"=the one"_s);
        QCOMPARE(keyring::itemCount(m_account.toStdString()), 1);
    }

    void removesManyItems()
    {
        has(60, "one of many");
        m_store->remove(m_account);
        QCOMPARE(read(), u"absent"_s);
        QCOMPARE(keyring::itemCount(m_account.toStdString()), 0);
    }

    // Surroundings that do not work

    void withoutABusAllIsAbsent()
    {
        QCOMPARE(Child(u"--store"_s, u"unix:path=/nonexistent"_s).lines(), absentAndPrompt);
    }

    void withoutAServiceAllIsAbsent()
    {
        const BareBus bus;
        QCOMPARE(Child(u"--store"_s, bus.address()).lines(), absentAndPrompt);
    }

    void aLockedKeyringIsAbsent()
    {
        QCOMPARE(Child(u"--locked"_s).lines(), QByteArrayList{"locked: yes"} + absentAndPrompt);
    }

    void aServiceThatNeverAnswersHoldsUpNobody()
    {
        const BareBus bus;
        Child service(u"--silent-service"_s, bus.address());
        QVERIFY(service.says("taken"));
        QCOMPARE(Child(u"--impatient-store"_s, bus.address()).lines(),
            QByteArrayList({"event loop: free", "before the end: unanswered", "end: prompt", "after the end: absent"}));
    }

    void aPromptThatNobodyAnswersHoldsUpNobody()
    {
        QCOMPARE(Child(u"--prompting"_s).lines(),
            QByteArrayList({"at first: =kept", "locked", "asked", "event loop: free", "unlocked", "withdrawn: absent",
                "then: =kept"}));
    }

    void aPromptThatNobodyAnswersDoesNotHoldUpTheEnd()
    {
        QCOMPARE(Child(u"--prompting-to-the-end"_s).lines(),
            QByteArrayList({"locked", "stands", "asked", "event loop: free", "end: prompt"}));
    }

    void aSlowKeyringHoldsUpNobody()
    {
        QCOMPARE(Child(u"--slow"_s).lines(),
            QByteArrayList(
                {"at first: =old", "stopped", "event loop: free", "then: =old", "then: =new", "then: absent"}));
    }

    void aKeyringThatDiesAmidACallIsAbsentUntilItIsStartedAnew()
    {
        QCOMPARE(Child(u"--dying"_s).lines(),
            QByteArrayList({"at first: =kept", "stopped", "event loop: free", "died", "in mid-call: absent",
                "locked: absent", "unlocked", "again: =kept", "changed: =new"}));
    }

    void aKeyringThatIsUnlockedLaterGivesWhatItHolds()
    {
        QCOMPARE(Child(u"--unlocked-later"_s).lines(),
            QByteArrayList({"at first: =kept", "locked", "locked: absent", "unlocked", "unlocked: =kept",
                "unlocked, other: absent", "removed: absent"}));
    }

    void outlivesTheBus()
    {
        BareBus bus;
        Child child(u"--outlive"_s, bus.address());
        QVERIFY(child.says("first: absent"));
        bus.dies();
        child.hears("go on");
        QVERIFY(child.says("second: absent"));
        QVERIFY(child.ends());
    }
};

} // namespace quillmere

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QByteArray mode = argc > 1 ? argv[1] : "";
    if (mode == "--store" || mode == "--impatient-store") {
        return quillmere::useStore(mode == "--store");
    }
    if (mode == "--locked") {
        return quillmere::useLockedStore();
    }
    if (mode == "--slow") {
        return quillmere::useSlowKeyring();
    }
    if (mode == "--dying") {
        return quillmere::useDyingKeyring();
    }
    if (mode == "--unlocked-later") {
        return quillmere::useKeyringUnlockedLater();
    }
    if (mode == "--prompting") {
        return quillmere::usePromptingKeyring();
    }
    if (mode == "--silent-prompter") {
        return quillmere::keepPromptsSilent();
    }
    if (mode == "--prompting-to-the-end") {
        return quillmere::useKeyringPromptingToTheEnd();
    }
    if (mode == "--silent-service") {
        return quillmere::keepSilent();
    }
    if (mode == "--outlive") {
        return quillmere::outliveBus();
    }
    quillmere::tst_LibsecretStore test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_LibsecretStore.moc"
