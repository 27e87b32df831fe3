#include "identity/AuthManager.h"
#include "service/QuillmereAPIClient.h"
#include "support/CapturedOutput.h"
#include "support/TestEnvironment.h"

#include <QSignalSpy>
#include <QThread>

using namespace Qt::StringLiterals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

AuthManager &auth()
{
    return AuthManager::shared();
}

UserProfile ada()
{
    return {u"u1"_s, u"ada@example.org"_s, u"Ada"_s, std::nullopt};
}

} // namespace

class tst_AuthManager : public QObject {
    Q_OBJECT

private slots:
    void init() { m_world = std::make_unique<testing::TestEnvironment>(); }
    void cleanup() { m_world.reset(); }

    void isOneObject() { QCOMPARE(&AuthManager::shared(), &AuthManager::shared()); }

    void startsSignedOut()
    {
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(!auth().currentUser());
        QVERIFY(!auth().hasCurrentUser());
        QVERIFY(!auth().subscription());
        QCOMPARE(m_world->secrets.reads, QStringList());
    }

    void namesItsTwoSecrets()
    {
        QCOMPARE(auth().tokenKey, u"quillmere_auth_token"_s);
        QCOMPARE(auth().refreshTokenKey, u"quillmere_refresh_token"_s);
        QCOMPARE(&auth().keychain, &KeychainHelper::shared());
    }

    void logsOutTokensFirst()
    {
        isSignedInWhole();
        QStringList order;
        // Before each write: what is still there.
        connect(&auth(), &AuthManager::willChange, this, [&](const QString &field) {
            order.append(field);
            QVERIFY(!m_world->secrets.peek(auth().tokenKey));
            QVERIFY(!m_world->secrets.peek(auth().refreshTokenKey));
            if (field == u"isAuthenticated") {
                QVERIFY(auth().isAuthenticated());
                QVERIFY(auth().currentUser());
            } else if (field == u"currentUser") {
                QVERIFY(!auth().isAuthenticated());
                QVERIFY(auth().currentUser());
            } else {
                QVERIFY(!auth().currentUser());
            }
        });
        connect(&auth(), &AuthManager::isAuthenticatedChanged, this, [&] {
            order.append(u"signed out"_s);
            QVERIFY(auth().currentUser());
        });
        connect(&auth(), &AuthManager::currentUserChanged, this, [&] {
            order.append(u"nobody"_s);
            QVERIFY(!auth().isAuthenticated());
        });
        auth().logout();
        QCOMPARE(order,
            QStringList({u"isAuthenticated"_s, u"signed out"_s, u"currentUser"_s, u"nobody"_s, u"subscription"_s}));
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(!auth().currentUser());
        QVERIFY(!auth().subscription());
    }

    void leavesOtherSecretsAlone()
    {
        m_world->secrets.save(u"x"_s, u"somebody else's"_s);
        isSignedInWhole();
        auth().logout();
        QCOMPARE(m_world->secrets.peek(u"somebody else's"_s).value_or(u"gone"_s), u"x"_s);
    }

    void announcesALogoutOfNobodyToo()
    {
        QSignalSpy willChange(&auth(), &AuthManager::willChange);
        QSignalSpy changed(&auth(), &AuthManager::isAuthenticatedChanged);
        auth().logout();
        QCOMPARE(willChange.size(), 3);
        QCOMPARE(changed.size(), 0);
    }

    void doesNotTellTheServiceOfALogout()
    {
        isSignedInWhole();
        auth().logout();
        settle();
        QVERIFY(m_world->service.requests().isEmpty());
        QCOMPARE(m_world->service.openConnections(), 0);
    }

    void endsTheSessionEvenIfTheStoreRefuses()
    {
        isSignedInWhole();
        m_world->secrets.refuses = true;
        testing::CapturedOutput output;
        auth().logout();
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(!auth().currentUser());
        QCOMPARE(output.lines(), QStringList());
    }

    void readsTheTokenFromTheStoreAtEachUse()
    {
        const QString first = m_world->isSignedIn();
        QVERIFY(fetches());
        const QString second = m_world->service.signsIn(u"grace@example.org"_s);
        m_world->secrets.save(second, auth().tokenKey);
        QVERIFY(fetches());
        const auto requests = m_world->service.requests();
        QCOMPARE(requests.size(), 2);
        QCOMPARE(requests[0].header("Authorization"), "Bearer " + first.toUtf8());
        QCOMPARE(requests[1].header("Authorization"), "Bearer " + second.toUtf8());
        QVERIFY(!m_world->secrets.reads.contains(auth().refreshTokenKey));
    }

    void takesTheServicesRecordAsTheUser()
    {
        m_world->isSignedIn();
        m_world->service.hasUser(R"({"id":"u7","email":"ada@example.org","name":"Ada L"})");
        testing::CapturedOutput output;
        QVERIFY(fetches());
        QCOMPARE(auth().currentUser()->id, u"u7"_s);
        QCOMPARE(auth().currentUserEmail(), u"ada@example.org"_s);
        QVERIFY(auth().hasCurrentUser());
        QVERIFY(!auth().subscription());
        QCOMPARE(output.lines(), QStringList());
    }

    void printsAFetchThatFailed()
    {
        m_world->isSignedIn();
        auth().setCurrentUser(ada());
        m_world->service.on("GET /v1/auth/me").answers(500, R"({"detail":"Down"})");
        testing::CapturedOutput output;
        QVERIFY(fetches());
        QCOMPARE(output.lines(), QStringList{u"No user: Down"_s});
        QVERIFY(auth().isAuthenticated());
        QCOMPARE(auth().currentUser()->id, u"u1"_s);
    }

    void givesNoUserToASessionThatHasEndedMeanwhile()
    {
        QVERIFY(fetchesWhile([] { auth().logout(); }));
        QVERIFY(!auth().currentUser());
    }

    void givesNoUserOfAnEndedSessionToTheNextOne()
    {
        QVERIFY(fetchesWhile([this] {
            auth().logout();
            m_world->isSignedIn(u"grace@example.org"_s);
            auth().setCurrentUser(UserProfile{u"u2"_s, u"grace@example.org"_s, u"Grace"_s, std::nullopt});
        }));
        QCOMPARE(auth().currentUser()->id, u"u2"_s);
    }

    void isOverWhenTheServiceNoLongerTakesTheToken_data()
    {
        QTest::addColumn<QByteArray>("route");
        QTest::newRow("the user") << QByteArray("GET /v1/auth/me");
        QTest::newRow("the jobs") << QByteArray("GET /v1/fine-tuning/jobs");
        QTest::newRow("the catalog") << QByteArray("GET /v1/models");
        QTest::newRow("a cancel") << QByteArray("POST /v1/fine-tuning/jobs/j/cancel");
    }
    void isOverWhenTheServiceNoLongerTakesTheToken()
    {
        QFETCH(QByteArray, route);
        isSignedInWhole();
        m_world->service.on(route).answers(401);
        QStringList order;
        connect(&auth(), &AuthManager::willChange, this, [&](const QString &field) {
            order.append(field);
            QCOMPARE(QThread::currentThread(), auth().thread());
            QVERIFY(!m_world->secrets.peek(auth().tokenKey));
        });
        const auto failed = [&](const auto &result) { order.append(result ? u"success"_s : u"the caller hears"_s); };
        auto &client = QuillmereAPIClient::shared();
        if (route.endsWith("me")) {
            client.getCurrentUser().then(failed);
        } else if (route.endsWith("jobs")) {
            client.listFineTuneJobs().then(failed);
        } else if (route.endsWith("models")) {
            client.listModels().then(failed);
        } else {
            client.cancelFineTuneJob(u"j"_s).then(failed);
        }
        QVERIFY(eventually([&] { return order.contains(u"the caller hears"_s); }));
        QCOMPARE(
            order, QStringList({u"isAuthenticated"_s, u"currentUser"_s, u"subscription"_s, u"the caller hears"_s}));
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(!auth().currentUser());
        QVERIFY(!m_world->secrets.peek(auth().refreshTokenKey));
    }

    void isOverOnlyForThat_data()
    {
        QTest::addColumn<int>("status");
        QTest::newRow("forbidden") << 403;
        QTest::newRow("not found") << 404;
        QTest::newRow("too many") << 429;
        QTest::newRow("down") << 503;
    }
    void isOverOnlyForThat()
    {
        QFETCH(int, status);
        isSignedInWhole();
        m_world->service.on("GET /v1/auth/me").answers(status);
        testing::CapturedOutput output;
        QVERIFY(fetches());
        QVERIFY(auth().isAuthenticated());
        QVERIFY(auth().currentUser());
        QVERIFY(m_world->secrets.peek(auth().tokenKey));
    }

    void startsCleanWithEachEnvironment()
    {
        isSignedInWhole();
        m_world.reset();
        m_world = std::make_unique<testing::TestEnvironment>();
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(!auth().currentUser());
    }

private:
    void isSignedInWhole()
    {
        m_world->isSignedIn();
        m_world->secrets.save(u"refresh"_s, auth().refreshTokenKey);
        auth().setCurrentUser(ada());
    }

    // Fetches the user and waits for the end of that.
    bool fetches()
    {
        bool ended = false;
        auth().fetchCurrentUser(u"No user: "_s).then([&](const auto &) { ended = true; });
        return eventually([&] { return ended; });
    }

    // Fetches the user, of whom the service tells only after that has happened.
    bool fetchesWhile(const std::function<void()> &happens)
    {
        isSignedInWhole();
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        bool ended = false;
        auth().fetchCurrentUser(u"No user: "_s).then([&](const auto &user) { ended = bool(user); });
        if (!eventually([&] { return m_world->service.requests().size() == 1; })) {
            return false;
        }
        happens();
        m_world->service.release();
        return eventually([&] { return ended; });
    }

    std::unique_ptr<testing::TestEnvironment> m_world;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_AuthManager)
#include "tst_AuthManager.moc"
