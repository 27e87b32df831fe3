// What a user waits for and what the program holds: the first frame, the main window, each destination, memory, rest. The real
// program (bench_studio) and the floors - an empty window of Qt Quick, one of GTK 4, and an application window of Chromium with a
// static page - are started by turns on the display at hand, with its keyring.
//
// Run it on a display and a keyring of its own (tests/support/with-display, with-keyring); QT_QUICK_BACKEND says what draws.
#include "Bench.h"

#include "standin/StandIn.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <map>

using namespace quillmere;
using namespace quillmere::bench;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// A program under measurement. What it says, a word and a number a line, is kept by the word.
class Run {
public:
    Run(const QString &program, const QStringList &arguments, const QHash<QString, QString> &variables = {})
    {
        // Its own, or it would find another one that is running.
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
        // All speak to the desktop's accessibility on demand only.
        environment.insert(u"GTK_A11Y"_s, u"none"_s);
        environment.insert(u"GSK_RENDERER"_s, drawsInSoftware() ? u"cairo"_s : u"gl"_s);
        for (auto each = variables.cbegin(); each != variables.cend(); ++each) {
            environment.insert(each.key(), each.value());
        }
        QObject::connect(&m_process, &QProcess::readyReadStandardOutput, [this] {
            while (m_process.canReadLine()) {
                const QByteArrayList words = m_process.readLine().trimmed().split(' ');
                if (words.size() == 2) {
                    m_said.insert({words[0], words[1].toDouble()});
                }
            }
        });
        m_process.setProcessEnvironment(environment);
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_begin = nanoseconds();
        m_process.start(program, arguments);
    }

    ~Run()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.terminate();
            runUntil([this] { return m_process.state() == QProcess::NotRunning; }, "A program did not end.");
        }
    }

    void wait()
    {
        runUntil([this] { return m_process.state() == QProcess::NotRunning; }, "A program did not end.");
        check(m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0, "A program failed.");
    }

    double timeTo(const QByteArray &moment)
    {
        runUntil([&] { return m_said.count(moment) > 0; }, "A program did not come up.");
        return (m_said.find(moment)->second - double(m_begin)) / 1e6;
    }

    // What of a processor it took to its first frame, which others on the machine disturb less than they do the time on the clock
    // (ms).
    double processorTimeToFirstFrame() const { return m_said.find("first-frame-work")->second; }

    double sinceBegin() const { return double(nanoseconds() - m_begin) / 1e6; }
    qint64 id() const { return m_process.processId(); }
    const std::multimap<QByteArray, double> &said() const { return m_said; }

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    qint64 m_begin = 0;
    std::multimap<QByteArray, double> m_said;
};

// The programs and their world.
class Subjects {
public:
    Subjects()
    {
        check(m_service.listen() && m_pings.listen(QHostAddress::LocalHost), "There is no port.");
        QObject::connect(&m_pings, &QTcpServer::newConnection, [this] {
            while (auto *ping = m_pings.nextPendingConnection()) {
                QObject::connect(ping, &QTcpSocket::disconnected, ping, &QObject::deleteLater);
                ping->write("HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n");
                ping->disconnectFromHost();
                ++m_pinged;
            }
        });
        studio("store " + m_service.signsIn(u"ada@example.org"_s).toUtf8())->wait();
    }

    std::unique_ptr<Run> studio(const QByteArray &tour)
    {
        return std::make_unique<Run>(QStringLiteral(BENCH_STUDIO), QStringList(),
            QHash<QString, QString>{
                {u"QUILLMERE_SERVICE"_s, m_service.origin()}, {u"QUILLMERE_TOUR"_s, QString::fromUtf8(tour)}});
    }

    static std::unique_ptr<Run> emptyWindow(const QStringList &arguments = {})
    {
        return std::make_unique<Run>(QStringLiteral(EMPTY_QUICK), arguments);
    }

    static std::unique_ptr<Run> gtk() { return std::make_unique<Run>(QStringLiteral(EMPTY_GTK), QStringList()); }

    // With the time to its first frame.
    std::pair<std::unique_ptr<Run>, double> chromium()
    {
        m_profile = std::make_unique<QTemporaryDir>();
        const int before = m_pinged;
        auto run = std::make_unique<Run>(u"chromium"_s,
            QStringList{u"--app=file://" BENCH_PAGE "#%1"_s.arg(m_pings.serverPort()),
                u"--user-data-dir="_s + m_profile->path(), u"--no-sandbox"_s, u"--disable-gpu"_s, u"--no-first-run"_s,
                u"--no-default-browser-check"_s, u"--disable-background-networking"_s, u"--disable-component-update"_s,
                u"--disable-sync"_s, u"--disable-crash-reporter"_s, u"--disable-breakpad"_s,
                u"--password-store=basic"_s});
        runUntil([&] { return m_pinged > before; }, "Chromium did not come up.");
        const double time = run->sinceBegin();
        return {std::move(run), time};
    }

private:
    StandIn m_service;
    QTcpServer m_pings;
    int m_pinged = 0;
    std::unique_ptr<QTemporaryDir> m_profile;
};

const QString emptyWindow = u"empty Qt Quick window"_s;

void firstFrame(Subjects &subjects, int rounds)
{
    Samples studio;
    Samples quick;
    Samples gtk;
    Samples chromium;
    Samples studioWork;
    Samples quickWork;
    for (int round = 0; round < rounds; ++round) {
        {
            const auto run = subjects.studio("start");
            studio.push_back(run->timeTo("first-frame"));
            studioWork.push_back(run->processorTimeToFirstFrame());
        }
        {
            const auto run = subjects.emptyWindow();
            quick.push_back(run->timeTo("first-frame"));
            quickWork.push_back(run->processorTimeToFirstFrame());
        }
        gtk.push_back(subjects.gtk()->timeTo("first-frame"));
        chromium.push_back(subjects.chromium().second);
    }
    print({u"process start to first splash frame"_s, "ms", studio, emptyWindow, quick, timesFloor(1.25)});
    print({u"process start to first splash frame"_s, "ms", studio, u"Chromium window"_s, chromium, timesFloor(0.2)});
    print({u"  processor time to it"_s, "ms", studioWork, emptyWindow, quickWork, timesFloor(1.25)});
    print({u"process start to first frame, empty window"_s, "ms", quick, u"GTK 4 for comparison"_s, gtk, {}});
}

void memory(Subjects &subjects, int rounds)
{
    std::map<QByteArray, Samples> seen;
    Samples quick;
    Samples gtk;
    Samples chromium;
    std::map<QByteArray, Samples> destinations;
    const auto held = [](Run &run) {
        runFor(2s);
        return proportionalMemory(run.id());
    };
    for (int round = 0; round < rounds; ++round) {
        for (const char *way : {"login", "visit"}) {
            const auto run = subjects.studio(way);
            run->wait();
            for (const auto &[what, number] : run->said()) {
                seen[what].push_back(number);
            }
        }
        {
            const auto run = subjects.emptyWindow();
            run->timeTo("first-frame");
            quick.push_back(held(*run));
        }
        {
            const auto run = subjects.gtk();
            run->timeTo("first-frame");
            gtk.push_back(held(*run));
        }
        chromium.push_back(held(*subjects.chromium().first));
    }
    print({u"memory at the login screen"_s, "MB", seen["memory-login"], emptyWindow, quick, aboveFloor(15)});
    print({u"memory at the main window"_s, "MB", seen["memory-main"], emptyWindow, quick, aboveFloor(25)});
    print({u"memory after all screens and tabs twice"_s, "MB", seen["memory-visited"], emptyWindow, quick,
        aboveFloor(40)});
    print({u"  of it without a file behind it"_s, "MB", seen["anonymous-visited"], {}, {}, {}});
    print({u"memory of an empty window"_s, "MB", quick, u"GTK 4 for comparison"_s, gtk, {}});
    print({u"memory of an empty window"_s, "MB", quick, u"Chromium for comparison"_s, chromium, {}});

    Samples all;
    const Samples &floor = seen["floor"];
    const QString rectangle = u"a rectangle of its size"_s;
    for (const auto &[what, times] : seen) {
        if (what.startsWith("to-")) {
            all.insert(all.end(), times.cbegin(), times.cend());
            print({u"selection to frame: "_s + QString::fromUtf8(what.mid(3)), "ms", times, rectangle, floor,
                atMost(120)});
        }
    }
    print({u"selection to frame: all of them"_s, "ms", all, rectangle, floor, atMost(50)});
}

void session(Subjects &subjects, int rounds)
{
    Samples times;
    Samples floors;
    for (int round = 0; round < rounds; ++round) {
        const auto run = subjects.studio("session");
        run->wait();
        times.push_back(run->said().find("session")->second);
        floors.push_back(subjects.emptyWindow()->timeTo("first-frame"));
    }
    print({u"session check to first frame of the main window"_s, "ms", times, emptyWindow, floors, atMost(120)});
}

// All at the same time: what is at rest disturbs nobody.
void rest(Subjects &subjects)
{
    QByteArrayList screens{"login", "projects", "datasets", "models", "training", "settings", "fineTune", "chat",
        "deployment", "agents", "profile", "analytics/2", "analytics/3"};
    for (char page = '0'; page < '6'; ++page) {
        screens.append(QByteArray("documentation/") + page);
    }

    std::vector<std::unique_ptr<Run>> runs;
    const auto floor = subjects.emptyWindow({u"rest"_s});
    for (const QByteArray &screen : screens) {
        runs.push_back(subjects.studio("rest " + screen));
        runFor(1500ms); // so that they do not all start at once
    }
    floor->wait();
    const Samples least{floor->said().find("share")->second};
    for (std::size_t i = 0; i < runs.size(); ++i) {
        runs[i]->wait();
        const auto &said = runs[i]->said();
        const auto number = [&said](const char *what) {
            const auto found = said.find(what);
            return found == said.end() ? 0 : found->second;
        };
        const QString name = QString::fromUtf8(screens[qsizetype(i)]);
        print({u"share of a core at rest: "_s + name, "%", {number("share")}, emptyWindow, least, atMost(0.1)});
        print({u"frames in 30 s at rest: "_s + name, "", {number("frames")}, {}, {}, {}});
        print({u"frames without a change: "_s + name, "", {number("idle-frames")}, {}, {}, atMost(0)});
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const bool quick = isQuick(argc, argv);
    Subjects subjects;
    firstFrame(subjects, quick ? 6 : 21);
    session(subjects, quick ? 6 : 11);
    memory(subjects, quick ? 1 : 6);
    if (!quick) {
        rest(subjects);
    }
    return exitCode();
}
