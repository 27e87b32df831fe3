#include "journeys/Desktop.h"
#include "journeys/Studio.h"
#include "platform/Keyring.h"
#include "standin/StandIn.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const auto accessTokenEntry = "quillmere_auth_token";
const auto refreshTokenEntry = "quillmere_refresh_token";
const QString address = u"grace@example.org"_s;
const QString secret = u"JBSWY3DPEHPK3PXPJBSWY3DPEHPK3PXP"_s;
const QString runningJob = u"Support Triage Assistant"_s;

} // namespace

// A user signs in, works and is signed out again: a real window driven by keys, the session's real keyring, real HTTP, and the
// desktop's own way from the program to a browser and back.
class tst_SignInJourney : public QObject {
    Q_OBJECT

    std::unique_ptr<StandIn> m_service;

    std::unique_ptr<Studio> starts(const QStringList &arguments = {}) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QUILLMERE_SERVICE"_s, m_service->origin());
        return std::make_unique<Studio>(QStringLiteral(STUDIO_UNDER_TEST), arguments, environment);
    }

    // Waits for so many requests to a path.
    bool isAsked(const QByteArray &method, const QByteArray &path, qsizetype times = 1)
    {
        return QTest::qWaitFor([&] { return m_service->requests(method, path).size() >= times; }, 20'000);
    }

    static bool hasTokens(int count)
    {
        return QTest::qWaitFor(
            [&] {
                return keyring::itemCount(accessTokenEntry) == count && keyring::itemCount(refreshTokenEntry) == count;
            },
            20'000);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(desktop::setBrowser(QStringLiteral(BROWSER), desktop::dataFolder(), desktop::configFolder()));
    }

    void init()
    {
        QVERIFY(keyring::clears(accessTokenEntry));
        QVERIFY(keyring::clears(refreshTokenEntry));
        m_service = std::make_unique<StandIn>();
        m_service->hasAccount(address, secret);
        QVERIFY(m_service->listen());
    }

    void cleanup()
    {
        QCOMPARE(m_service->unexpectedRequests(), QStringList());
        m_service.reset();
    }

    void signsInThroughTheBrowserOnceAndForAll()
    {
        auto studio = starts();
        QVERIFY(studio->entersCredentials(address, secret));
        QVERIFY(studio->shows(u"Sidebar"_s, u"Sign In"_s));
        QVERIFY(studio->shows(address));
        QVERIFY(hasTokens(1));
        QCOMPARE(m_service->requests("GET", "/desktop-login").size(), 1);
        QVERIFY(isAsked("GET", "/v1/auth/me"));
        const QByteArray token = QByteArray::fromStdString(keyring::secret(accessTokenEntry));
        QVERIFY(token.startsWith("qm_at_"));
        QVERIFY(keyring::secret(refreshTokenEntry).starts_with("qm_rt_"));
        QCOMPARE(m_service->requests("GET", "/v1/auth/me")[0].header("Authorization"), "Bearer " + token);
        QCOMPARE(studio->said(), QByteArray());

        QVERIFY(desktop::press(u"alt+F4"_s));
        QVERIFY(studio->ends());
        QVERIFY(hasTokens(1));

        m_service->forgetRequests();
        studio = starts();
        QVERIFY(studio->shows(u"Sidebar"_s, u"Custom LLMs: Finetune, Train, Deploy"_s));
        QVERIFY(isAsked("GET", "/v1/auth/me"));
        QCOMPARE(m_service->requests("GET", "/v1/auth/me")[0].header("Authorization"), "Bearer " + token);
        QVERIFY(m_service->requests("POST", "/api/auth/user/login-init").isEmpty());
    }

    void cancelsARunningJobOnce()
    {
        QVERIFY(keyring::stores(accessTokenEntry, m_service->signsIn(address).toStdString()));
        const auto studio = starts();
        QVERIFY(studio->shows(u"Sidebar"_s));
        QVERIFY(studio->tabsTo(u"Training"_s));
        QVERIFY(desktop::press(u"Return"_s));
        QVERIFY(studio->shows(runningJob));
        QCOMPARE(m_service->requests("GET", "/v1/fine-tuning/jobs").size(), 1);

        QVERIFY(studio->tabsTo(u"Cancel "_s + runningJob));
        QVERIFY(desktop::press(u"space"_s));
        QVERIFY(isAsked("GET", "/v1/fine-tuning/jobs", 2));
        QVERIFY(studio->shows(runningJob, u"Cancel "_s + runningJob));
        QCOMPARE(m_service->requests("POST", "/v1/fine-tuning/jobs/ft-40217/cancel").size(), 1);
        QCOMPARE(m_service->requests("GET", "/v1/fine-tuning/jobs").size(), 2);
    }

    void fallsBackToTheLoginScreenWithARevokedToken()
    {
        QVERIFY(keyring::stores(accessTokenEntry, m_service->signsIn(address).toStdString()));
        QVERIFY(keyring::stores(refreshTokenEntry, "qm_rt_1"));
        const auto studio = starts();
        QVERIFY(studio->shows(u"Sidebar"_s));
        QVERIFY(isAsked("GET", "/v1/auth/me"));
        m_service->revokesTokens();
        QVERIFY(studio->tabsTo(u"Training"_s));
        QVERIFY(desktop::press(u"Return"_s));
        QVERIFY(studio->shows(u"Sign In"_s, u"Sidebar"_s));
        QVERIFY(hasTokens(0));
    }

    void onlyPrintsAUrlThatNobodyWaitsFor()
    {
        const auto studio = starts();
        QVERIFY(studio->focuses(u"Email"_s));
        const QString url = u"com.quillmere.studio://callback#access_token=qm_at_1&refresh_token=qm_rt_1"_s;
        QVERIFY(starts({url})->ends());
        QVERIFY(studio->says("Received URL: " + url.toUtf8()));
        QVERIFY(studio->focuses(u"Email"_s));
        QVERIFY(hasTokens(0));
        QVERIFY(m_service->requests("GET", "/v1/auth/me").isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_SignInJourney)
#include "tst_SignInJourney.moc"
