#include "app/Quillmere_StudioApp.h"
#include "app/RootViewState.h"
#include "identity/AuthManager.h"
#include "identity/LoginViewModel.h"
#include "platform/Keyring.h"
#include "platform/KeyringProcess.h"
#include "platform/LibsecretStore.h"
#include "platform/SilentPrompter.h"
#include "service/QuillmereAPIClient.h"
#include "support/TestEnvironment.h"
#include "support/Window.h"

#include <QQuickWindow>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto tokenEntry = "quillmere_auth_token";
const auto address = u"ada@example.org"_s;

AuthManager &auth()
{
    return AuthManager::shared();
}

} // namespace

// The window beside a real keyring that does not answer. It stays silent until the test lets it go on, so that whoever waited for
// it on the main thread would wait for ever, and whatever is seen to happen meanwhile did not wait at all.
class tst_SilentKeyring : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        failOnWarnings();
        m_world = std::make_unique<TestEnvironment>();
        m_world->environment.secrets = std::make_unique<LibsecretStore>();
        const std::string token = m_world->service.signsIn(address).toStdString();
        QVERIFY(keyring::clears(tokenEntry) && keyring::stores(tokenEntry, token));
        m_keyring = std::make_unique<keyring::Process>();
    }
    void cleanup()
    {
        m_keyring.reset();
        m_window.reset();
        m_studio.reset();
        m_world.reset();
    }

    void theWindowGoesOnAndSignsInWhenTheKeyringAnswers()
    {
        QVERIFY(m_keyring->stops());
        opens();
        m_world->clock.advance(RootViewState::splashTime);
        QVERIFY(drawsManyFrames());
        m_world->clock.advance(RootViewState::storePatience);
        QVERIFY(eventually([this] { return isLogin(); }));
        m_window->type(address);
        QCOMPARE(m_window->field(u"Email"_s)->property("text").toString(), address);
        QVERIFY(drawsManyFrames());
        QVERIFY(!auth().isAuthenticated());

        m_keyring->goesOn();
        QVERIFY(eventually([this] { return isMain() && !isLogin(); }));
    }

    void requestsWaitForTheTokenAndNothingWaitsForThem()
    {
        opensSignedIn();
        m_world->service.forgetRequests();
        QVERIFY(m_keyring->stops());
        std::optional<bool> answer;
        QuillmereAPIClient::shared().getCurrentUser().then([&](const auto &user) { answer = bool(user); });
        m_window->click(m_window->button(u"Training"_s));
        m_window->click(m_window->button(u"Datasets"_s));
        QVERIFY(drawsManyFrames());
        QVERIFY(!answer && m_world->service.requests().isEmpty());

        m_keyring->goesOn();
        QVERIFY(eventually([&] { return answer.has_value(); }));
        QVERIFY(*answer);
    }

    void signingOutIsSeenAtOnceAndDoneWhenTheKeyringAnswers()
    {
        opensSignedIn();
        QVERIFY(m_keyring->stops());
        auth().logout();
        QVERIFY(eventually([this] { return isLogin() && !isMain(); }));
        QVERIFY(drawsManyFrames());

        m_keyring->goesOn();
        QVERIFY(eventually([] { return keyring::itemCount(tokenEntry) == 0; }));
    }

    void aPromptThatNobodyAnswersHoldsUpNeitherTheWindowNorTheSignIn()
    {
        QVERIFY(keyring::locks());
        auto prompter = std::make_unique<keyring::SilentPrompter>();
        opens();
        m_world->clock.advance(RootViewState::splashTime);
        QVERIFY(eventually([&] { return prompter->isAsked(); }));
        QVERIFY(drawsManyFrames());
        QVERIFY(!isLogin());
        m_world->clock.advance(RootViewState::storePatience);
        QVERIFY(eventually([this] { return isLogin(); }));

        const QString token = m_world->service.signsIn(address);
        LoginViewModel().handleCallback(QUrl(u"com.quillmere.studio://callback#access_token="_s + token));
        QVERIFY(eventually([this] { return isMain() && !isLogin(); }));
        QVERIFY(drawsManyFrames());
        QVERIFY(m_world->service.requests().isEmpty()); // which wait for the token

        // The keyring is unlocked by other means, and takes the question back.
        QVERIFY(keyring::unlocks());
        prompter.reset();
        QVERIFY(eventually([&] { return !m_world->service.requests().isEmpty(); }));
        QCOMPARE(m_world->service.requests().constFirst().header("Authorization"), "Bearer " + token.toUtf8());
        QCOMPARE(keyring::secret(tokenEntry), token.toStdString());
        QVERIFY(isMain() && auth().isAuthenticated());
    }

    void aKeyringThatDiesLeavesTheWindowAsItIs()
    {
        opensSignedIn();
        QVERIFY(m_keyring->stops());
        std::optional<bool> answer;
        QuillmereAPIClient::shared().getCurrentUser().then([&](const auto &user) { answer = bool(user); });
        QVERIFY(drawsManyFrames());
        QVERIFY(m_keyring->dies());
        // Without a token the service refuses, which ends the session as any refusal does.
        QVERIFY(eventually([&] { return answer.has_value(); }));
        QVERIFY(!*answer);
        QVERIFY(eventually([this] { return isLogin(); }));
        QVERIFY(drawsManyFrames());
    }

private:
    void opens()
    {
        m_studio = std::make_unique<Quillmere_StudioApp>();
        QVERIFY(m_studio->open());
        m_window = std::make_unique<Window>(*m_studio->window());
        QVERIFY(QTest::qWaitForWindowExposed(m_studio->window()));
    }

    void opensSignedIn()
    {
        opens();
        m_world->clock.advance(RootViewState::splashTime);
        QVERIFY(eventually([this] { return isMain() && auth().hasCurrentUser(); }));
    }

    bool drawsManyFrames()
    {
        QQuickWindow &window = *m_studio->window();
        int frames = 0;
        const auto drawn = connect(&window, &QQuickWindow::frameSwapped, &window, [&] {
            ++frames;
            window.update();
        });
        window.update();
        const bool enough = eventually([&] { return frames >= 30; });
        disconnect(drawn);
        return enough;
    }

    bool isLogin() const { return m_window->shows(u"Seamless Model Sync"_s); }
    bool isMain() const { return !m_window->all(u"ContentView"_s).isEmpty(); }

    std::unique_ptr<TestEnvironment> m_world;
    std::unique_ptr<Quillmere_StudioApp> m_studio;
    std::unique_ptr<Window> m_window;
    std::unique_ptr<keyring::Process> m_keyring;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_SilentKeyring)
#include "tst_SilentKeyring.moc"
