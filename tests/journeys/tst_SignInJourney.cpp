#include "journeys/Desktop.h"
#include "journeys/JourneyTest.h"
#include "platform/Keyring.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString runningJob = u"Support Triage Assistant"_s;

} // namespace

// A user signs in, works and is signed out again: a real window driven by keys, the session's real keyring, real HTTP, and the
// desktop's own way from the program to a browser and back.
class tst_SignInJourney : public JourneyTest {
    Q_OBJECT

private slots:
    void signsInThroughTheBrowserOnceAndForAll()
    {
        auto studio = m_world->starts();
        QVERIFY(studio->entersCredentials(address, secret));
        QVERIFY(studio->shows(u"Sidebar"_s, u"Sign In"_s));
        QVERIFY(studio->shows(address));
        QVERIFY(JourneyWorld::hasTokens(1));
        QCOMPARE(m_world->service.requests("GET", "/desktop-login").size(), 1);
        QVERIFY(m_world->isAsked("GET", "/v1/auth/me"));
        const QByteArray token = QByteArray::fromStdString(keyring::secret(accessTokenEntry));
        QVERIFY(token.startsWith("qm_at_"));
        QVERIFY(keyring::secret(refreshTokenEntry).starts_with("qm_rt_"));
        QCOMPARE(m_world->service.requests("GET", "/v1/auth/me")[0].header("Authorization"), "Bearer " + token);
        QCOMPARE(studio->said(), QByteArray());

        QVERIFY(desktop::press(u"alt+F4"_s));
        QVERIFY(studio->ends());
        QVERIFY(JourneyWorld::hasTokens(1));

        m_world->service.forgetRequests();
        studio = m_world->starts();
        QVERIFY(studio->shows(u"Sidebar"_s, u"Custom LLMs: Finetune, Train, Deploy"_s));
        QVERIFY(m_world->isAsked("GET", "/v1/auth/me"));
        QCOMPARE(m_world->service.requests("GET", "/v1/auth/me")[0].header("Authorization"), "Bearer " + token);
        QVERIFY(m_world->service.requests("POST", "/api/auth/user/login-init").isEmpty());
    }

    void cancelsARunningJobOnce()
    {
        QVERIFY(keyring::stores(accessTokenEntry, m_world->service.signsIn(address).toStdString()));
        const auto studio = m_world->starts();
        QVERIFY(studio->shows(u"Sidebar"_s));
        QVERIFY(studio->tabsTo(u"Training"_s));
        QVERIFY(desktop::press(u"Return"_s));
        QVERIFY(studio->shows(runningJob));
        QCOMPARE(m_world->service.requests("GET", "/v1/fine-tuning/jobs").size(), 1);

        QVERIFY(studio->tabsTo(u"Cancel "_s + runningJob));
        QVERIFY(desktop::press(u"space"_s));
        QVERIFY(m_world->isAsked("GET", "/v1/fine-tuning/jobs", 2));
        QVERIFY(studio->shows(runningJob, u"Cancel "_s + runningJob));
        QCOMPARE(m_world->service.requests("POST", "/v1/fine-tuning/jobs/ft-40217/cancel").size(), 1);
        QCOMPARE(m_world->service.requests("GET", "/v1/fine-tuning/jobs").size(), 2);
    }

    void fallsBackToTheLoginScreenWithARevokedToken()
    {
        QVERIFY(keyring::stores(accessTokenEntry, m_world->service.signsIn(address).toStdString()));
        QVERIFY(keyring::stores(refreshTokenEntry, "qm_rt_1"));
        const auto studio = m_world->starts();
        QVERIFY(studio->shows(u"Sidebar"_s));
        QVERIFY(m_world->isAsked("GET", "/v1/auth/me"));
        m_world->service.revokesTokens();
        QVERIFY(studio->tabsTo(u"Training"_s));
        QVERIFY(desktop::press(u"Return"_s));
        QVERIFY(studio->shows(u"Sign In"_s, u"Sidebar"_s));
        QVERIFY(JourneyWorld::hasTokens(0));
    }

    void onlyPrintsAUrlThatNobodyWaitsFor()
    {
        const auto studio = m_world->starts();
        QVERIFY(studio->focuses(u"Email"_s));
        const QString url = u"com.quillmere.studio://callback#access_token=qm_at_1&refresh_token=qm_rt_1"_s;
        QVERIFY(m_world->starts({url})->ends());
        QVERIFY(studio->says("Received URL: " + url.toUtf8()));
        QVERIFY(studio->focuses(u"Email"_s));
        QVERIFY(JourneyWorld::hasTokens(0));
        QVERIFY(m_world->service.requests("GET", "/v1/auth/me").isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_SignInJourney)
#include "tst_SignInJourney.moc"
