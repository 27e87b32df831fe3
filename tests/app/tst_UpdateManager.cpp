#include "app/UpdateManager.h"

#include "platform/Alerts.h"
#include "platform/MainQueue.h"
#include "support/PlatformEnvironment.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

const auto page = u"https://quillmere.example/download"_s;

QByteArray reply(const QByteArray &version, const QByteArray &url)
{
    return "{\"version\": " + version + ", \"web_download_url\": " + url + '}';
}

const QByteArray newerVersion = reply("\"9.9.9\"", "\"https://quillmere.example/download\"");

Alerts &alerts()
{
    return Alerts::shared();
}

} // namespace

class tst_UpdateManager : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<testing::PlatformEnvironment>();
        QCoreApplication::setApplicationVersion(u"1.9.9"_s);
    }
    void cleanup() { m_world.reset(); }

    // Comparing

    void knowsWhichVersionIsNewer_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<QString>("newerThan");
        QTest::addColumn<bool>("isNewer");
        const auto row = [](const char *version, const char *newerThan, bool isNewer) {
            QTest::addRow("%s over %s", version, newerThan)
                << QString::fromUtf8(version) << QString::fromUtf8(newerThan) << isNewer;
        };
        row("1.10.0", "1.9.9", true);
        row("1.9.9", "1.10.0", false);
        row("1.2", "1.2.0", false);
        row("1.2.0", "1.2", false);
        row("1.2.1", "1.2", true);
        row("1.2", "1.2.1", false);
        row("2.0", "0.0.0", true);
        row("1.0.0", "1.0.0", false);
        row("1.2-beta.3", "1.2", true); // 1, 3
        row("1.2-beta.3", "1.3", false);
        row("v2.0", "1.0", false); // 0
        row("v2", "0.0.0", false); // nothing
        row("1..2", "1.1", true);
        row("1..2", "1.2", false);
        row("..1", "0.9", true);
        row("", "", false);
        row("", "0.0.0", false);
        row("0.0.0", "", false);
        row("0.0.1", "", true);
        row("2.999999999999999999999999999999", "2", false); // too long to be a number
        row("2.999999999999999999999999999999.1", "2.0", true);
        row("9223372036854775807", "9223372036854775806", true);
        row("9223372036854775808", "1", false);
        row("+2", "1", true);
        row("1.-1", "1", false);
        row("1", "1.-1", true);
        row("+-2", "1", false);
        row("0x10", "1", false);
        row(" 2", "1", false);
        row("2e1", "1", false);
        row("\u0662", "1", false); // a digit of another script
        row("01.002", "1.1", true);
    }
    void knowsWhichVersionIsNewer()
    {
        QFETCH(QString, version);
        QFETCH(QString, newerThan);
        QTEST(UpdateManager::isVersion(version, newerThan), "isNewer");
    }

    // Asking

    void asksOnceAndPlainly()
    {
        answers(newerVersion);
        QVERIFY(offers());
        const auto requests = m_world->service.requests();
        QCOMPARE(requests.size(), 1);
        QCOMPARE(requests[0].method, "GET");
        QCOMPARE(requests[0].target, "/api/downloads/version");
        QVERIFY(!requests[0].hasHeader("Authorization"));
        QVERIFY(!requests[0].hasHeader("Content-Type"));
        QVERIFY(!requests[0].header("User-Agent").contains("Quillmere"));
    }

    void returnsAtOnce()
    {
        m_world->service.on("GET /api/downloads/version").hangsBeforeReply();
        UpdateManager::shared().checkForUpdates();
        settle();
        QVERIFY(!alerts().isUp());
    }

    void asksNothingAtAnAddressThatIsNone()
    {
        m_world->environment.hosts.downloadHost = u"not a host"_s;
        UpdateManager::shared().checkForUpdates();
        settle();
        QVERIFY(m_world->service.requests().isEmpty());
    }

    // Offering

    void offersANewerVersion()
    {
        answers(newerVersion);
        QVERIFY(offers());
        QCOMPARE(alerts().title(), u"Update Available"_s);
        QCOMPARE(alerts().text(), u"Quillmere Studio 9.9.9 is available. Would you like to download it now?"_s);
        QCOMPARE(alerts().buttons(), (QStringList{u"Download"_s, u"Later"_s}));
        QCOMPARE(UpdateManager::shared().latestVersion(), u"9.9.9"_s);
        QCOMPARE(UpdateManager::shared().downloadURL(), page);
        QVERIFY(UpdateManager::shared().updateAvailable());
        QVERIFY(m_world->urlOpener.opened.isEmpty());
    }

    void writesItsFieldsInOrderBeforeTheAlert()
    {
        answers(newerVersion);
        QStringList written;
        auto &manager = UpdateManager::shared();
        connect(&manager, &UpdateManager::willChange, this, [&](const QString &field) {
            QVERIFY(!alerts().isUp());
            written += field;
        });
        QVERIFY(offers());
        QCOMPARE(written, (QStringList{u"latestVersion"_s, u"downloadURL"_s, u"updateAvailable"_s}));
    }

    void opensThePageForTheFirstButton()
    {
        answers(newerVersion);
        QVERIFY(offers());
        alerts().answer(0);
        QVERIFY(eventually([&] { return !m_world->urlOpener.opened.isEmpty(); }));
        QCOMPARE(m_world->urlOpener.opened, QList<QUrl>{QUrl(page)});
        QVERIFY(!alerts().isUp());
    }

    void closesForTheSecondButtonAndRemembersNothing()
    {
        answers(newerVersion);
        QVERIFY(offers());
        alerts().answer(1);
        settle();
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QVERIFY(!alerts().isUp());
        QVERIFY(offers());
    }

    void offersWhateverTheStatus_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : {200, 203, 404, 500, 503}) {
            QTest::addRow("%d", status) << status;
        }
    }
    void offersWhateverTheStatus()
    {
        QFETCH(int, status);
        answers(newerVersion, status);
        QVERIFY(offers());
    }

    void followsARedirect()
    {
        m_world->service.on("GET /api/downloads/version").redirects(302, "/other");
        m_world->service.on("GET /other").answers(200, newerVersion);
        QVERIFY(offers());
    }

    void takesTheVersionForNothingWhereItIsNotKnown()
    {
        QCoreApplication::setApplicationVersion({});
        answers(reply("\"0.0.1\"", "\"https://quillmere.example\""));
        // Without a name of its own the version is read as empty, unless Qt finds one elsewhere.
        QCOMPARE(QCoreApplication::applicationVersion(), QString());
        QVERIFY(offers());
    }

    void takesKeysThatItDoesNotKnowForNothing()
    {
        answers("{\"size\": 1, \"notes\": {\"a\": []}, " + newerVersion.mid(1));
        QVERIFY(offers());
    }

    void opensNothingThatIsNoPageOfTheWeb_data()
    {
        QTest::addColumn<QByteArray>("url");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no URL") << QByteArray("not a url");
        QTest::newRow("half an escape") << QByteArray("https://quillmere.example/%zz");
        QTest::newRow("no host") << QByteArray("https://");
        QTest::newRow("a file") << QByteArray("file:///etc/passwd");
        QTest::newRow("a script") << QByteArray("javascript:alert(1)");
        QTest::newRow("our own scheme") << QByteArray("com.quillmere.studio://callback#access_token=a");
        QTest::newRow("mail") << QByteArray("mailto:somebody@example.org");
    }
    void opensNothingThatIsNoPageOfTheWeb()
    {
        QFETCH(QByteArray, url);
        answers(reply("\"9.9.9\"", '"' + url + '"'));
        QVERIFY(offers());
        QCOMPARE(UpdateManager::shared().downloadURL(), QString::fromUtf8(url));
        alerts().answer(0);
        settle();
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QVERIFY(!alerts().isUp());
    }

    void saysNothing_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("about the same version") << reply("\"1.9.9\"", "\"https://quillmere.example\"");
        QTest::newRow("about an older one") << reply("\"1.9\"", "\"https://quillmere.example\"");
        QTest::newRow("without a page") << QByteArray("{\"version\": \"9.9.9\"}");
        QTest::newRow("without a version") << QByteArray("{\"web_download_url\": \"https://quillmere.example\"}");
        QTest::newRow("about a version that is a number") << reply("9.9", "\"https://quillmere.example\"");
        QTest::newRow("about a page that is null") << reply("\"9.9.9\"", "null");
        QTest::newRow("about keys in other letters")
            << QByteArray(newerVersion).replace("web_download_url", "webDownloadUrl");
        QTest::newRow("about an empty body") << QByteArray();
        QTest::newRow("about HTML") << QByteArray("<html></html>");
        QTest::newRow("about half an object") << QByteArray(newerVersion.left(newerVersion.size() / 2));
        QTest::newRow("about a list") << "[" + newerVersion + "]";
        QTest::newRow("about a text") << QByteArray("\"9.9.9\"");
        QTest::newRow("about blanks") << QByteArray(1'000'000, ' ');
    }
    void saysNothing()
    {
        QFETCH(QByteArray, body);
        answers(body);
        staysSilent();
    }

    void saysNothingWhenNobodyAnswers()
    {
        m_world->service.on("GET /api/downloads/version").closesWithoutReply();
        staysSilent();
    }

    void saysNothingAfterAReplyWithoutEnd()
    {
        m_world->service.on("GET /api/downloads/version").sendsHugeBody(70'000'000);
        staysSilent();
    }

    void saysNothingWhenTheReplyDoesNotComeInAMinute()
    {
        m_world->service.on("GET /api/downloads/version").hangsBeforeReply();
        QSignalSpy begun(&m_world->service, &StandIn::requestBegins);
        UpdateManager::shared().checkForUpdates();
        QVERIFY(eventually([&] { return begun.size() == 1; }));
        m_world->clock.advance(61s);
        settle();
        m_world->service.release();
        settle();
        QVERIFY(!alerts().isUp());
    }

    void waitsForAnAlertThatIsUp()
    {
        answers(newerVersion);
        alerts().present(u"Another"_s, {}, {u"OK"_s});
        QSignalSpy sent(&m_world->service, &StandIn::replySent);
        UpdateManager::shared().checkForUpdates();
        QVERIFY(eventually([&] { return sent.size() == 1; }));
        settle();
        QVERIFY(!UpdateManager::shared().updateAvailable());
        alerts().answer(0);
        QVERIFY(eventually([] { return alerts().isUp() && alerts().title() == u"Update Available"_s; }));
    }

    void bearsAnEndWhileItAsks()
    {
        m_world->service.on("GET /api/downloads/version").hangsBeforeReply();
        UpdateManager::shared().checkForUpdates();
        settle();
        m_world.reset();
        settle();
    }

private:
    void answers(const QByteArray &body, int status = 200)
    {
        m_world->service.on("GET /api/downloads/version").answers(status, body);
    }

    static bool offers()
    {
        UpdateManager::shared().checkForUpdates();
        return eventually([] { return alerts().isUp(); });
    }

    // The request has ended, and everything that could have followed from it too.
    void staysSilent()
    {
        UpdateManager::shared().checkForUpdates();
        QVERIFY(eventually([&] { return !m_world->service.requests().isEmpty(); }));
        const auto hasEnded = [&] {
            return m_world->service.openConnections() == 0 || m_world->clock.scheduledCount() == 0;
        };
        QVERIFY(eventually(hasEnded));
        settle();
        QVERIFY(!alerts().isUp());
        QVERIFY(!UpdateManager::shared().updateAvailable());
        QVERIFY(!UpdateManager::shared().latestVersion());
        QVERIFY(!UpdateManager::shared().downloadURL());
    }

    std::unique_ptr<testing::PlatformEnvironment> m_world;
};

} // namespace quillmere

QTEST_GUILESS_MAIN(quillmere::tst_UpdateManager)

#include "tst_UpdateManager.moc"
