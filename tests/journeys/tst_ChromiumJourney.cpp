#include "journeys/Desktop.h"
#include "journeys/Studio.h"
#include "platform/Keyring.h"
#include "standin/StandIn.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QStandardPaths>
#include <QTest>

#include <csignal>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString question = u"Open Quillmere Studio?"_s;
const QString answer = u"Open Quillmere Studio"_s;

// The processes that run in this test's home folder, and so belong to it.
QSet<qint64> processesAtHome()
{
    const QByteArray home = "HOME=" + qgetenv("HOME");
    QSet<qint64> processes;
    const QStringList entries = QDir(u"/proc"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &entry : entries) {
        QFile environment(u"/proc/"_s + entry + u"/environ"_s);
        bool isProcess = false;
        const qint64 process = entry.toLongLong(&isProcess);
        if (isProcess && environment.open(QIODevice::ReadOnly) && environment.readAll().split('\0').contains(home)) {
            processes.insert(process);
        }
    }
    return processes;
}

QByteArray commandLine(qint64 process)
{
    QFile file(u"/proc/%1/cmdline"_s.arg(process));
    file.open(QIODevice::ReadOnly);
    return file.readAll().replace('\0', ' ');
}

} // namespace

// The sign-in in a real browser with a profile of its own, which asks its user whether it may go back to the program.
class tst_ChromiumJourney : public QObject {
    Q_OBJECT

    static QString home() { return QDir::homePath(); }

    // The session's browser: tells its process and starts Chromium such that it asks for nothing but what this is about, and
    // shows its own windows to assistive programs.
    static bool installsBrowser()
    {
        const QString script = home() + u"/browser"_s;
        QFile file(script);
        QByteArray options =
            "--user-data-dir=\"$HOME/chromium\" --no-first-run --no-default-browser-check --no-proxy-server "
            "--disable-gpu --disable-crash-reporter --disable-breakpad --password-store=basic "
            "--force-renderer-accessibility";
        if (geteuid() == 0) {
            options += " --no-sandbox";
        }
        return file.open(QIODevice::WriteOnly)
            && file.write(
                "#!/bin/sh\necho $$ >\"$HOME/browser.pid.new\" && mv \"$HOME/browser.pid.new\" \"$HOME/browser.pid\"\n"
                "export ACCESSIBILITY_ENABLED=1\nexec chromium "
                + options + " \"$@\" >\"$HOME/browser.log\" 2>&1\n")
            && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)
            && desktop::setBrowser(script, desktop::dataFolder(), desktop::configFolder());
    }

    static qint64 browserProcess()
    {
        QFile file(home() + u"/browser.pid"_s);
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toLongLong() : 0;
    }

    // Chromium takes no answer in the first moments of a question, nor one of several in quick succession, lest it be given
    // unawares: it is given anew, less and less often, for as long as the question stands. On a busy machine the keys may go to
    // another window then, which a click changes.
    static bool answers(const Screen &browser)
    {
        for (int pause = 1000; pause <= 16'000; pause *= 2) {
            const auto isThrough = [&] { return QTest::qWaitFor([&] { return !browser.isShowing(question); }, pause); };
            if ((desktop::press(u"Return"_s) && isThrough()) || (browser.clicks(answer) && isThrough())) {
                return true;
            }
        }
        return false;
    }

private slots:
    void cleanup()
    {
        // After a failure; otherwise there is none any more.
        if (const qint64 browser = browserProcess()) {
            QTRY_VERIFY_WITH_TIMEOUT(kill(pid_t(browser), SIGTERM) != 0, 10'000);
        }
    }

    void signsInThroughChromium()
    {
        QVERIFY2(!QStandardPaths::findExecutable(u"chromium"_s).isEmpty(), "This journey needs Chromium.");
        QVERIFY(installsBrowser());
        const QString secret = u"JBSWY3DPEHPK3PXPJBSWY3DPEHPK3PXP"_s;
        StandIn service;
        service.hasAccount(u"grace@example.org"_s, secret);
        QVERIFY(service.listen());
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QUILLMERE_SERVICE"_s, service.origin());

        Studio studio(QStringLiteral(STUDIO_UNDER_TEST), {}, environment);
        QVERIFY(studio.focuses(u"Email"_s));
        const QSet<qint64> processesBefore = processesAtHome();
        QVERIFY(studio.entersCredentials(u"grace@example.org"_s, secret));

        QTRY_VERIFY_WITH_TIMEOUT(browserProcess() > 0, 20'000);
        const Screen browser(browserProcess());
        QVERIFY(browser.shows(question));
        QVERIFY(browser.tabsTo(answer));
        QVERIFY(answers(browser));

        QVERIFY(studio.shows(u"grace@example.org"_s));
        QTRY_COMPARE_WITH_TIMEOUT(service.requests("GET", "/v1/auth/me").size(), 1, 20'000);
        QCOMPARE(service.requests("GET", "/desktop-login").size(), 1);
        QCOMPARE(service.requests("GET", "/v1/auth/me")[0].header("Authorization"),
            "Bearer " + QByteArray::fromStdString(keyring::secret("quillmere_auth_token")));
        QVERIFY(keyring::secret("quillmere_refresh_token").starts_with("qm_rt_"));
        QCOMPARE(service.unexpectedRequests(), QStringList());

        QCOMPARE(kill(pid_t(browser.processId()), SIGTERM), 0);
        const auto left = [&] {
            QByteArrayList commands;
            for (const qint64 process : processesAtHome() - processesBefore) {
                commands.append(commandLine(process));
            }
            return commands;
        };
        QTRY_COMPARE_WITH_TIMEOUT(left(), QByteArrayList(), 20'000);
        QVERIFY(studio.isRunning());
    }
};

QTEST_GUILESS_MAIN(tst_ChromiumJourney)
#include "tst_ChromiumJourney.moc"
