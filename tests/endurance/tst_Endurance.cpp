#include "FlatMemory.h"
#include "Monkey.h"

#include "app/Quillmere_StudioApp.h"
#include "app/RootViewState.h"
#include "app/SidebarItem.h"
#include "identity/AuthManager.h"
#include "platform/Alerts.h"
#include "support/AnimationTime.h"
#include "support/TestEnvironment.h"
#include "support/Window.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto secret = u"JBSWY3DPEHPK3PXP"_s;

// A taste of each run unless QUILLMERE_ENDURANCE says "full".
bool isFull()
{
    return qEnvironmentVariable("QUILLMERE_ENDURANCE") == u"full"_s;
}

// What is drawn at random can be had again with QUILLMERE_SEED.
quint32 seed()
{
    const quint32 otherwise = isFull() ? QRandomGenerator::global()->generate() : 1;
    return qEnvironmentVariableIsSet("QUILLMERE_SEED") ? qEnvironmentVariable("QUILLMERE_SEED").toUInt() : otherwise;
}

} // namespace

// The whole window through what months of use bring: not a warning, and no more memory at the end than in the middle.
class tst_Endurance : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }
    void init()
    {
        failOnWarnings();
        QAccessible::setActive(true);
        QCoreApplication::setApplicationVersion(u"1.0.0"_s); // which is the newest that the service has
        m_world = std::make_unique<TestEnvironment>();
        m_studio = std::make_unique<Quillmere_StudioApp>();
        QVERIFY(m_studio->open());
        window().requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        m_window = std::make_unique<Window>(window());
        m_world->service.hasAccount(u"ada@example.org"_s, secret);
        m_token = m_world->service.signsIn(u"ada@example.org"_s);
        m_memory = std::make_unique<FlatMemory>(*qmlEngine(&window()));
    }
    void cleanup()
    {
        m_memory.reset();
        m_window.reset();
        m_studio.reset();
        m_world.reset();
        m_animations.reset();
    }

    void switchesDestinations()
    {
        const int switches = isFull() ? 10'000 : 13 * 8;
        const int samples = isFull() ? 40 : 8;
        opensSignedIn();
        for (int i = 0; i < switches; ++i) {
            // Five and thirteen have no divisor in common: all destinations in turn, each after another one.
            const int item = i * 5 % SidebarItem::count;
            goesTo(item);
            QCOMPARE(content()->property("selection").toInt(), item);
            if (item == SidebarItem::Analytics) {
                const QList<QQuickItem *> tabs = m_window->all(u"AnalyticsTabButton"_s);
                QCOMPARE(tabs.size(), 6);
                for (int tab : {i % 6, (i + 1) % 6, (i + 2) % 6}) {
                    m_window->click(tabs[tab]);
                    goesOn(100ms);
                }
            }
            // Some visits last until the screen has what it asks for, others end before.
            goesOn(i % 3 == 0 ? 2s : 20ms);
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(SidebarItem::rawValue(item)));
            if ((i + 1) % (switches / samples) == 0) {
                rests();
            }
        }
        staysFlat();
    }

    void signsInAndOut()
    {
        const int times = isFull() ? 1'000 : 8;
        const int samples = isFull() ? 40 : 8;
        m_world->clock.advance(RootViewState::splashTime);
        for (int i = 0; i < times; ++i) {
            QVERIFY(eventually([this] { return isLogin() && !isMain(); }));
            signsIn();
            QVERIFY(eventually([this] { return isMain() && !isLogin(); }));
            if (i % 2 == 0) {
                goesTo(SidebarItem::Settings);
                m_window->click(m_window->button(u"Log Out"_s));
            } else {
                m_world->service.on("GET /v1/models", 1).answers(401, R"({"detail": "not any more"})");
                goesTo(SidebarItem::Models);
            }
            QVERIFY(eventually([] { return !AuthManager::shared().isAuthenticated(); }));
            QVERIFY(!m_world->secrets.peek(AuthManager::shared().tokenKey));
            goesOn(30s); // An authenticator's code holds once.
            if ((i + 1) % (times / samples) == 0) {
                rests();
            }
        }
        staysFlat();
    }

    void livesThroughClicksAndKeysAtRandom()
    {
        const std::chrono::milliseconds length = isFull() ? 1h : 2min;
        const int samples = isFull() ? 40 : 8;
        const quint32 chosen = seed();
        qInfo("QUILLMERE_SEED=%u", chosen);
        m_animations = std::make_unique<AnimationTime>();
        m_world->environment.animations = true;
        opensSignedIn();
        Monkey monkey(chosen, window(), *m_world);
        const auto start = m_world->clock.uptime();
        auto nextRest = start + length / samples;
        int acts = 0;
        while (m_world->clock.uptime() < start + length) {
            monkey.act();
            ++acts;
            const auto pause = std::chrono::milliseconds(50 + monkey.draw(900));
            for (int part = 0; part < 3; ++part) {
                goesOn(pause / 3);
            }
            comesBack(monkey);
            if (QTest::currentTestFailed()) {
                QFAIL(qPrintable(u"After %1 acts:\n  "_s.arg(acts) + monkey.lastActs().join(u"\n  "_s)));
            }
            if (m_world->clock.uptime() >= nextRest) {
                nextRest += length / samples;
                comesToRest();
            }
        }
        qInfo("%d acts", acts);
        staysFlat();
    }

private:
    QQuickWindow &window() const { return *m_studio->window(); }

    void opensSignedIn()
    {
        m_world->secrets.save(m_token, AuthManager::shared().tokenKey);
        m_world->clock.advance(RootViewState::splashTime);
        showsTheMainWindow();
    }

    // It fades in.
    void showsTheMainWindow()
    {
        QVERIFY(eventually([this] {
            goesOn(50ms);
            return isMain();
        }));
    }

    void signsIn()
    {
        m_window->type(u"ada@example.org"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(u"Enter Code"_s) && !m_window->shows(u"Continue"_s); }));
        m_window->type(StandIn::totp(secret, m_world->clock.now()));
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([] { return BrowserSession::shared().isWaiting(); }));
        QVERIFY(BrowserSession::shared().deliver(
            u"com.quillmere.studio://callback#access_token="_s + m_token + u"&refresh_token=b"_s));
    }

    // By the sidebar where there is a row.
    void goesTo(int item)
    {
        const QString title = SidebarItem::title(item);
        if (SidebarItem::mainGroup().contains(item) || SidebarItem::systemGroup().contains(item)) {
            m_window->click(m_window->button(title));
        } else {
            content()->setProperty("selection", item);
        }
    }

    // Time passes, what is due happens, and a frame is drawn.
    void goesOn(std::chrono::milliseconds time)
    {
        m_world->clock.advance(time);
        if (m_animations) {
            m_animations->pass(time.count());
        }
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QEvent frame(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&window(), &frame);
    }

    // What only the test holds on to is no leak.
    void rests()
    {
        for (int i = 0; i < 20; ++i) {
            goesOn(100ms);
        }
        m_world->service.forgetRequests();
        m_world->secrets.reads.clear();
        m_world->urlOpener.opened.clear();
        m_world->filePicker.requests.clear();
        m_memory->sample();
    }

    // From wherever the monkey got to, back to the window and the session that it is about.
    void comesBack(Monkey &monkey)
    {
        if (!window().isVisible() || window().windowStates() & Qt::WindowMinimized) {
            window().showNormal();
            window().requestActivate();
        }
        if (!AuthManager::shared().isAuthenticated() && monkey.draw(20) == 0) {
            BrowserSession::shared().cancel();
            m_world->isSignedIn();
        } else if (AuthManager::shared().isAuthenticated() && content() && monkey.draw(30) == 0) {
            content()->setProperty("selection", monkey.draw(SidebarItem::count));
        }
    }

    void comesToRest()
    {
        m_world->service.clearFaults();
        m_world->service.release();
        m_world->filePicker.answers(QList<QUrl>());
        BrowserSession::shared().cancel();
        while (Alerts::shared().isUp()) {
            Alerts::shared().answer(0);
        }
        if (!AuthManager::shared().isAuthenticated()) {
            m_world->isSignedIn();
        }
        showsTheMainWindow();
        content()->setProperty("selection", int(SidebarItem::Dashboard));
        window().resize(1200, 800);
        rests();
    }

    void staysFlat()
    {
        qInfo("%s", qPrintable(m_memory->story()));
        // A taste ends before all caches are warm; what a whole screen leaves behind shows in it all the same.
        const QString complaint =
            isFull() ? m_memory->complaint(1'000'000, 4'000'000) : m_memory->complaint(3'000'000, 8'000'000);
        QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
    }

    bool isLogin() const { return m_window->shows(u"Seamless Model Sync"_s); }
    bool isMain() const { return content() != nullptr; }
    QQuickItem *content() const { return m_window->all(u"ContentView"_s).value(0); }

    std::unique_ptr<AnimationTime> m_animations; // in the run at random; elsewhere what moves arrives at once
    std::unique_ptr<TestEnvironment> m_world;
    std::unique_ptr<Quillmere_StudioApp> m_studio;
    std::unique_ptr<Window> m_window;
    std::unique_ptr<FlatMemory> m_memory;
    QString m_token;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_Endurance)
#include "tst_Endurance.moc"
