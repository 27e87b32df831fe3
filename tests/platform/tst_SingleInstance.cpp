#include "platform/SingleInstance.h"
#include "support/Waiting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <sys/stat.h>
#include <vector>

using namespace Qt::StringLiterals;
using quillmere::testing::eventually;

namespace quillmere {

namespace {

const QString name = u"com.quillmere.studio"_s;

// What this program does when it is started with "--instance MESSAGE": what the application does, without its windows. It
// tells what happens in lines: "second" and ends, or "first", and then each message in hexadecimal.
int runAsInstance(int argc, char *argv[])
{
    const auto say = [](const QByteArray &line) {
        std::puts(line.constData());
        std::fflush(stdout);
    };
    SingleInstance instance(name);
    if (!instance.claim(QString::fromLocal8Bit(argv[2]))) {
        say("second");
        return 0;
    }
    QCoreApplication application(argc, argv);
    QObject::connect(&instance, &SingleInstance::received, &application, [&say](const QString &message) {
        say("received " + message.toUtf8().toHex());
        if (message == u"quit"_s) {
            QCoreApplication::quit();
        }
    });
    instance.listen();
    say("first");
    return QCoreApplication::exec();
}

// Such a process.
class Instance {
public:
    explicit Instance(const QString &message)
    {
        m_process.start(QCoreApplication::applicationFilePath(), {u"--instance"_s, message});
    }
    ~Instance()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished();
        }
    }
    Q_DISABLE_COPY_MOVE(Instance)

    bool says(const QByteArray &line)
    {
        return eventually([&] { return hasSaid(line); });
    }
    bool hasSaid(const QByteArray &line)
    {
        m_said += m_process.readAllStandardOutput();
        return m_said.split('\n').contains(line);
    }
    qsizetype count(const QByteArray &text)
    {
        m_said += m_process.readAllStandardOutput();
        return m_said.count(text);
    }
    bool ends()
    {
        return eventually([&] { return m_process.state() == QProcess::NotRunning; })
            && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }
    bool handsOver() { return says("second") && ends(); }
    void dies()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    QByteArray complains() { return m_process.readAllStandardError(); }

private:
    QProcess m_process;
    QByteArray m_said;
};

} // namespace

class tst_SingleInstance : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_runtime;

    QString path(const QString &suffix) const { return m_runtime->path() + u'/' + name + suffix; }
    // A first process that takes messages and never answers.
    class SilentFirst {
    public:
        explicit SilentFirst(const tst_SingleInstance &test) : m_lock(test.path(u".lock"_s))
        {
            m_lock.lock();
            m_server.listen(test.path(u".socket"_s));
            QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { ++m_connections; });
        }
        bool hearsOf(int connections)
        {
            return eventually([&] { return m_connections >= connections; });
        }
        int connections() const { return m_connections; }
        void ends()
        {
            m_server.close();
            m_lock.unlock();
        }

    private:
        QLockFile m_lock;
        QLocalServer m_server;
        int m_connections = 0;
    };

    static bool isForItsUserOnly(const QString &path)
    {
        struct stat status = {};
        return stat(qPrintable(path), &status) == 0 && (status.st_mode & 077) == 0;
    }

private slots:
    void init()
    {
        m_runtime = std::make_unique<QTemporaryDir>();
        QVERIFY(m_runtime->isValid());
        qputenv("XDG_RUNTIME_DIR", m_runtime->path().toLocal8Bit());
    }

    void givesWayToAnotherWhileItLivesOn()
    {
        SingleInstance first(name);
        QVERIFY(first.claim({}));
        first.listen();
        first.release();
        Instance another(u"hello"_s);
        QVERIFY(another.says("first"));
        QVERIFY(!first.claim(u"quit"_s));
        QVERIFY(another.ends());
    }

    void theFirstIsTheFirst()
    {
        SingleInstance instance(name);
        QSignalSpy received(&instance, &SingleInstance::received);
        QVERIFY(instance.claim(u"its own message"_s));
        instance.listen();
        QTest::qWait(0);
        QCOMPARE(received.size(), 0);
    }

    void aSecondHandsItsMessageOverAndEnds_data()
    {
        QTest::addColumn<QString>("message");
        QTest::newRow("a callback")
            << u"com.quillmere.studio://callback#access_token=x&expires_in=3600&state=a%20b%2Fc"_s;
        QTest::newRow("nothing") << QString();
        QTest::newRow("blanks and quotes") << u" a \"b\" 'c'\n"_s;
        QTest::newRow("letters beyond ASCII") << u"é😀"_s;
        QTest::newRow("long") << QString(100'000, u'x');
    }
    void aSecondHandsItsMessageOverAndEnds()
    {
        QFETCH(QString, message);
        SingleInstance instance(name);
        QVERIFY(instance.claim({}));
        instance.listen();
        QSignalSpy received(&instance, &SingleInstance::received);
        Instance second(message);
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        QCOMPARE(received.constFirst().constFirst().toString(), message);
        QVERIFY(second.handsOver());
        QCOMPARE(received.size(), 1);
    }

    void leavesOutTheRestOfAMessageWithoutEnd()
    {
        SingleInstance instance(name);
        QVERIFY(instance.claim({}));
        instance.listen();
        QSignalSpy received(&instance, &SingleInstance::received);
        // Within one process, since a command line has its own limit.
        const std::unique_ptr<QThread> thread(
            QThread::create([] { SingleInstance(name).claim(QString(3'000'000, u'x')); }));
        thread->start();
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        QCOMPARE(received.constFirst().constFirst().toString(), QString(1 << 20, u'x'));
        QVERIFY(thread->wait(15'000));
    }

    void twentyAtOnceEachDeliverOnce()
    {
        Instance first(u"0"_s);
        QVERIFY(first.says("first"));
        std::vector<std::unique_ptr<Instance>> others;
        for (int i = 1; i <= 20; ++i) {
            others.push_back(std::make_unique<Instance>(u"message %1"_s.arg(i)));
        }
        for (const auto &other : others) {
            QVERIFY(other->handsOver());
        }
        for (int i = 1; i <= 20; ++i) {
            QVERIFY(first.says("received " + u"message %1"_s.arg(i).toUtf8().toHex()));
        }
        // Whatever came twice would have come before this.
        Instance last(u"quit"_s);
        QVERIFY(last.handsOver());
        QVERIFY(first.ends());
        QCOMPARE(first.count("received "), 21);
    }

    void ofTwentyThatStartTogetherOneIsTheFirst()
    {
        std::vector<std::unique_ptr<Instance>> all;
        for (int i = 1; i <= 20; ++i) {
            all.push_back(std::make_unique<Instance>(u"message %1"_s.arg(i)));
        }
        const auto isFirst = [](const auto &instance) { return instance->hasSaid("first"); };
        QVERIFY(eventually([&] { return std::any_of(all.begin(), all.end(), isFirst); }));
        Instance &first = **std::find_if(all.begin(), all.end(), isFirst);
        for (const auto &one : all) {
            if (one.get() != &first) {
                QVERIFY(one->handsOver());
            }
        }
        Instance last(u"quit"_s);
        QVERIFY(last.handsOver());
        QVERIFY(first.ends());
        QCOMPARE(first.count("received "), 20);
    }

    void aKilledFirstLeavesNothingThatStopsTheNext()
    {
        Instance first(u"1"_s);
        QVERIFY(first.says("first"));
        first.dies();
        QVERIFY(QFile::exists(path(u".lock"_s)));
        QVERIFY(QFile::exists(path(u".socket"_s)));
        Instance next(u"2"_s);
        QVERIFY(next.says("first"));
        Instance third(u"3"_s);
        QVERIFY(third.handsOver());
        QVERIFY(next.says("received 33"));
    }

    void anEndedFirstLeavesNothingAtAll()
    {
        Instance first(u"1"_s);
        QVERIFY(first.says("first"));
        Instance second(u"quit"_s);
        QVERIFY(second.handsOver());
        QVERIFY(first.ends());
        QCOMPARE(
            QDir(m_runtime->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System | QDir::Hidden),
            QStringList());
    }

    void whoMeetsAFirstThatIsEndingBecomesTheFirst()
    {
        SilentFirst ending(*this);
        Instance next(u"1"_s);
        QVERIFY(ending.hearsOf(1));
        QVERIFY(!next.hasSaid("first"));
        ending.ends();
        QVERIFY(next.says("first"));
    }

    void tellsAFirstThatDoesNotAnswerOnceAndGivesUp()
    {
        SilentFirst silent(*this);
        Instance second(u"1"_s);
        QVERIFY(second.handsOver()); // which takes its ten seconds
        QCOMPARE(second.complains(), "Quillmere Studio is already running and does not answer.\n");
        QCOMPARE(silent.connections(), 1);
    }

    void garbageOnTheSocketDoesNoHarm_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("a length beyond all measure") << QByteArray("\xff\xff\xff\xff") + QByteArray(100, 'x');
        QTest::newRow("a length just too large") << QByteArray("\x00\x10\x00\x01", 4) + QByteArray(100, 'x');
        QTest::newRow("half a length") << QByteArray("\x00\x00", 2);
        QTest::newRow("less than promised") << QByteArray("\x00\x00\x00\x05"
                                                          "ab",
            6);
        QTest::newRow("a word of another protocol") << QByteArray("GET / HTTP/1.1\r\n\r\n");
        QTest::newRow("nothing") << QByteArray();
    }
    void garbageOnTheSocketDoesNoHarm()
    {
        QFETCH(QByteArray, bytes);
        SingleInstance instance(name);
        QVERIFY(instance.claim({}));
        instance.listen();
        QSignalSpy received(&instance, &SingleInstance::received);
        QLocalSocket stays;
        stays.connectToServer(path(u".socket"_s));
        QVERIFY(stays.waitForConnected());
        stays.write(bytes);
        stays.flush();
        QLocalSocket goes;
        goes.connectToServer(path(u".socket"_s));
        QVERIFY(goes.waitForConnected());
        goes.write(bytes);
        goes.flush();
        goes.disconnectFromServer();

        Instance second(u"good"_s);
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        QVERIFY(second.handsOver());
        QCOMPARE(received.size(), 1);
        QCOMPARE(received.constFirst().constFirst().toString(), u"good"_s);
    }

    void bytesThatAreNoTextArriveAsText()
    {
        SingleInstance instance(name);
        QVERIFY(instance.claim({}));
        instance.listen();
        QSignalSpy received(&instance, &SingleInstance::received);
        QLocalSocket socket;
        socket.connectToServer(path(u".socket"_s));
        QVERIFY(socket.waitForConnected());
        socket.write(QByteArray("\x00\x00\x00\x03"
                                "a\xff"
                                "b",
            7));
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        QCOMPARE(received.constFirst().constFirst().toString(), u"a\ufffdb"_s);
    }

    void onlyItsUserReachesSocketAndLock()
    {
        const mode_t before = umask(0);
        SingleInstance instance(name);
        QVERIFY(instance.claim({}));
        instance.listen();
        umask(before);
        QVERIFY(isForItsUserOnly(path(u".socket"_s)));
        QVERIFY(isForItsUserOnly(path(u".lock"_s)));
    }

    void programsOfOtherNamesDoNotMeet()
    {
        SingleInstance one(name);
        SingleInstance other(u"com.quillmere.other"_s);
        QVERIFY(one.claim({}));
        QVERIFY(other.claim({}));
    }
};

} // namespace quillmere

int main(int argc, char *argv[])
{
    if (argc > 2 && QByteArray(argv[1]) == "--instance") {
        return quillmere::runAsInstance(argc, argv);
    }
    const QCoreApplication application(argc, argv);
    quillmere::tst_SingleInstance test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_SingleInstance.moc"
