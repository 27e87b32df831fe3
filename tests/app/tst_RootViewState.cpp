#include "app/RootViewState.h"
#include "identity/AuthManager.h"
#include "support/CapturedOutput.h"
#include "support/TestEnvironment.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;
using quillmere::testing::settle;

namespace quillmere {

namespace {

AuthManager &auth()
{
    return AuthManager::shared();
}

} // namespace

class tst_RootViewState : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<testing::TestEnvironment>();
        m_state = std::make_unique<RootViewState>();
    }
    void cleanup()
    {
        m_state.reset();
        m_world.reset();
    }

    void looksAtTheSessionAtTheEndOfTheSplashAndNotBefore()
    {
        stores(m_world->service.signsIn(u"ada@example.org"_s));
        m_state->appear();
        m_world->clock.advance(2'499ms);
        settle();
        QVERIFY(m_state->showSplash());
        QVERIFY(!auth().isAuthenticated());
        QCOMPARE(m_world->secrets.reads, QStringList());
        QVERIFY(m_world->service.requests().isEmpty());

        m_world->clock.advance(1ms);
        QVERIFY(!m_state->showSplash());
        QVERIFY(auth().isAuthenticated());
        QVERIFY(eventually([] { return auth().hasCurrentUser(); }));
        QCOMPARE(m_world->service.requests().size(), 1);
    }

    void showsTheSplashUntilItHasAppeared()
    {
        m_world->clock.advance(1min);
        QVERIFY(m_state->showSplash());
        m_state->appear();
        m_world->clock.advance(2'499ms);
        QVERIFY(m_state->showSplash());
        m_world->clock.advance(1ms);
        QVERIFY(!m_state->showSplash());
    }

    void signsInBeforeTheSplashGoes()
    {
        stores(u"a token"_s);
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        m_state->appear();
        QList<bool> authenticated;
        connect(
            m_state.get(), &RootViewState::willChange, this, [&] { authenticated.append(auth().isAuthenticated()); });
        m_world->clock.advance(2'500ms);
        QCOMPARE(authenticated, QList<bool>{true});
    }

    void doesNothingWithoutAToken_data()
    {
        QTest::addColumn<bool>("stored");
        QTest::newRow("absent") << false;
        QTest::newRow("empty") << true;
    }
    void doesNothingWithoutAToken()
    {
        QFETCH(bool, stored);
        if (stored) {
            stores(u""_s);
        }
        QSignalSpy willChange(&auth(), &AuthManager::willChange);
        testing::CapturedOutput output;
        appearsAndWaits();
        QVERIFY(!m_state->showSplash());
        QVERIFY(!auth().isAuthenticated());
        settle();
        QCOMPARE(willChange.size(), 0);
        QVERIFY(m_world->service.requests().isEmpty());
        QCOMPARE(output.lines(), QStringList());
        QCOMPARE(m_world->secrets.peek(auth().tokenKey).has_value(), stored);
    }

    void countsAStoredTokenAsASessionWithoutAsking()
    {
        stores(u"a token"_s);
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        appearsAndWaits();
        QVERIFY(auth().isAuthenticated());
        QVERIFY(!m_state->showSplash());
        QVERIFY(!auth().currentUser());
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 1; }));
        settle();
        QVERIFY(auth().isAuthenticated());
        QVERIFY(!auth().currentUser());
    }

    void printsOneLineWhenTheUserCannotBeFetched_data()
    {
        QTest::addColumn<bool>("isReachable");
        QTest::newRow("service down") << true;
        QTest::newRow("no network") << false;
    }
    void printsOneLineWhenTheUserCannotBeFetched()
    {
        QFETCH(bool, isReachable);
        stores(u"a token"_s);
        if (isReachable) {
            m_world->service.on("GET /v1/auth/me").answers(500, R"({"detail":"Down"})");
        } else {
            m_world->environment.hosts.apiEndpoint = u"http://127.0.0.1:1"_s;
        }
        QSignalSpy willChange(&auth(), &AuthManager::willChange);
        testing::CapturedOutput output;
        appearsAndWaits();
        QVERIFY(eventually([&] { return !output.lines().isEmpty(); }));
        settle();
        QCOMPARE(output.lines().size(), 1);
        const auto complaint = u"Failed to fetch user on launch: "_s;
        QVERIFY(output.lines().constFirst().startsWith(complaint));
        QVERIFY(output.lines().constFirst().size() > complaint.size());
        if (isReachable) {
            QCOMPARE(output.lines().constFirst(), complaint + u"Down"_s);
        }
        QVERIFY(auth().isAuthenticated());
        QVERIFY(!auth().currentUser());
        QCOMPARE(willChange.size(), 1);
        QCOMPARE(m_world->secrets.peek(auth().tokenKey).value_or(u"none"_s), u"a token"_s);
    }

    void fallsBackWhenTheServiceDoesNotTakeTheToken()
    {
        stores(u"a stale token"_s);
        m_world->secrets.save(u"refresh"_s, auth().refreshTokenKey);
        testing::CapturedOutput output;
        appearsAndWaits();
        QVERIFY(auth().isAuthenticated());
        QVERIFY(eventually([] { return !auth().isAuthenticated(); }));
        QVERIFY(eventually([&] { return !output.lines().isEmpty(); }));
        QCOMPARE(output.lines(), QStringList{u"Failed to fetch user on launch: Please log in to continue"_s});
        QVERIFY(!auth().currentUser());
        QVERIFY(!m_world->secrets.peek(auth().tokenKey));
        QVERIFY(!m_world->secrets.peek(auth().refreshTokenKey));
        QVERIFY(!m_state->showSplash());
    }

    void neverShowsTheSplashAgain()
    {
        QSignalSpy changed(m_state.get(), &RootViewState::showSplashChanged);
        appearsAndWaits();
        m_world->isSignedIn();
        auth().logout();
        m_world->isSignedIn();
        m_world->clock.advance(1h);
        QVERIFY(!m_state->showSplash());
        QCOMPARE(changed.size(), 1);
    }

    // A keyring that asks for its password

    void doesNotWaitLongForASlowKeyringButTakesItsTokenLate()
    {
        stores(m_world->service.signsIn(u"ada@example.org"_s));
        m_world->secrets.hold();
        m_state->appear();
        m_world->clock.advance(2'749ms);
        QCOMPARE(m_world->secrets.reads, QStringList{auth().tokenKey});
        QVERIFY(m_state->showSplash());
        m_world->clock.advance(1ms);
        QVERIFY(!m_state->showSplash());
        m_world->clock.advance(1min);
        settle();
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(m_world->service.requests().isEmpty());

        m_world->secrets.answer();
        QVERIFY(eventually([] { return auth().hasCurrentUser(); }));
        QVERIFY(auth().isAuthenticated());
        QVERIFY(!m_state->showSplash());
    }

    void passesOverATokenThatComesAfterASignInAndALogout()
    {
        stores(m_world->service.signsIn(u"ada@example.org"_s));
        m_world->secrets.hold();
        m_state->appear();
        m_world->clock.advance(2'750ms);
        QVERIFY(!m_state->showSplash());
        auth().setIsAuthenticated(true);
        auth().logout();
        m_world->secrets.answer();
        settle();
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(m_world->service.requests().isEmpty());
    }

    void endsTheSplashWhenTheKeyringAnswersInTime()
    {
        stores(u"a token"_s);
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        m_world->secrets.hold();
        m_state->appear();
        m_world->clock.advance(2'600ms);
        QVERIFY(m_state->showSplash());
        QSignalSpy willChange(m_state.get(), &RootViewState::willChange);
        m_world->secrets.answer();
        QVERIFY(eventually([this] { return !m_state->showSplash(); }));
        QVERIFY(auth().isAuthenticated());
        m_world->clock.advance(1min);
        QCOMPARE(willChange.size(), 1);
    }

    void signsInEvenIfTheViewIsGone()
    {
        stores(u"a token"_s);
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        m_world->secrets.hold();
        m_state->appear();
        m_world->clock.advance(2'500ms);
        m_state.reset();
        m_world->clock.advance(250ms);
        m_world->secrets.answer();
        QVERIFY(eventually([] { return auth().isAuthenticated(); }));
    }

    void forgetsTheSplashOfAViewThatIsGone()
    {
        stores(u"a token"_s);
        m_state->appear();
        m_state.reset();
        m_world->clock.advance(1min);
        settle();
        QCOMPARE(m_world->secrets.reads, QStringList());
        QVERIFY(!auth().isAuthenticated());
    }

private:
    void stores(const QString &token) { m_world->secrets.save(token, auth().tokenKey); }

    void appearsAndWaits()
    {
        m_state->appear();
        m_world->clock.advance(RootViewState::splashTime);
        QVERIFY(!m_state->showSplash());
    }

    std::unique_ptr<testing::TestEnvironment> m_world;
    std::unique_ptr<RootViewState> m_state;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_RootViewState)
#include "tst_RootViewState.moc"
