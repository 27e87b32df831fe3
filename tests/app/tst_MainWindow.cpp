#include "app/Quillmere_StudioApp.h"
#include "app/RootViewState.h"
#include "app/SidebarItem.h"
#include "identity/AuthManager.h"
#include "platform/Alerts.h"
#include "support/AnimationTime.h"
#include "support/CapturedOutput.h"
#include "support/TestEnvironment.h"
#include "support/Window.h"

#include <QEasingCurve>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

const auto white = u"#ffffffff"_s;
const auto textSecondary = u"#ffa1a1aa"_s;
const auto textTertiary = u"#ff71717a"_s;
const auto clear = u"#00000000"_s;
const auto selected = u"#ff1f1f22"_s;

const auto callback = u"com.quillmere.studio://callback#access_token=a&refresh_token=b"_s;

AuthManager &auth()
{
    return AuthManager::shared();
}

} // namespace

class tst_MainWindow : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        failOnWarnings();
        QAccessible::setActive(true);
        QCoreApplication::setApplicationVersion(u"1.0.0"_s); // which is the newest that the service has
        m_world = std::make_unique<TestEnvironment>();
    }
    void cleanup()
    {
        m_window.reset();
        m_studio.reset();
        m_world.reset();
    }

    // The window

    void isOneWindowWithoutAFrameAsLargeAsTheScreen()
    {
        opens();
        const QQuickWindow &window = *m_studio->window();
        QCOMPARE(window.title(), u"Quillmere Studio"_s);
        QVERIFY(window.flags().testFlag(Qt::FramelessWindowHint));
        QCOMPARE(window.minimumSize(), QSize(1200, 800));
        QCOMPARE(window.size(), QGuiApplication::primaryScreen()->size().expandedTo({1200, 800}));
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
        QCOMPARE(window.color().name(), u"#09090b"_s);
    }

    // Splash, login, main window

    void showsTheSplashFirst()
    {
        stores(m_world->service.signsIn(u"ada@example.org"_s));
        opens();
        QVERIFY(isSplash());
        m_world->clock.advance(2'499ms);
        settle();
        QVERIFY(isSplash());
        QVERIFY(!isLogin());
        QVERIFY(!isMain());
        QVERIFY(m_world->service.requests().isEmpty());
        m_world->clock.advance(1ms);
        QVERIFY(eventually([this] { return isMain() && !isSplash(); }));
    }

    void composesTheSplash()
    {
        opens();
        QVERIFY(eventually([this] { return m_window->shows(u"Quillmere Studio"_s); }));
        const QQuickItem *logo = m_window->all(u"QQuickImage"_s).value(0);
        QVERIFY(eventually([&] { return placeOf(logo).width() == 140; }));
        QCOMPARE(placeOf(logo).size(), QSizeF(140, 140));
        QCOMPARE(logo->property("status").toInt(), 1); // ready
        const QQuickItem *name = m_window->text(u"Quillmere Studio"_s);
        QCOMPARE(fontOf(name), u"Gabarito 32 700"_s);
        QVERIFY(isTracked(name, 0.032));
        QCOMPARE(colorOf(name), white);
        const QQuickItem *claim = m_window->text(u"Custom LLMs: Finetune, Train, Deploy"_s);
        QCOMPARE(fontOf(claim), u"Space Grotesk 16 500"_s);
        QCOMPARE(colorOf(claim), textSecondary);
        const QQuickItem *spinner = m_window->all(u"Spokes"_s).value(0);
        QCOMPARE(colorOf(spinner), textSecondary);
        QCOMPARE(spinner->scale(), 0.8);
        QCOMPARE(spinner->transformOrigin(), QQuickItem::Center);

        QCOMPARE(gapBetween(logo, name), 32.0);
        QCOMPARE(gapBetween(name, claim), 12.0);
        // 32 between the parts, and 20 of padding above the indicator, which is scaled about its centre.
        QCOMPARE(placeOf(spinner).center().y() - spinner->height() / 2 - placeOf(claim).bottom(), 52.0);
        const double middle = m_studio->window()->width() / 2.0;
        for (const QQuickItem *item : {logo, name, claim, spinner}) {
            QVERIFY(qAbs(placeOf(item).center().x() - middle) <= 1);
        }
        const QQuickItem *stack = logo->parentItem();
        QVERIFY(qAbs(placeOf(stack).center().y() - m_studio->window()->height() / 2.0) <= 1);
        const QQuickItem *screen = m_window->all(u"SplashScreenView"_s).value(0);
        QCOMPARE(colorOf(screen), u"#ff09090b"_s);
        QCOMPARE(placeOf(screen), QRectF({0, 0}, m_studio->window()->size()));
        QCOMPARE(QSizeF(screen->implicitWidth(), screen->implicitHeight()), QSizeF(800, 600));
    }

    void letsTheSplashGrowAndFadeIn()
    {
        m_world->environment.animations = true;
        AnimationTime time;
        m_studio = std::make_unique<Quillmere_StudioApp>();
        QVERIFY(m_studio->open());
        const auto findStack = [this] {
            const auto items = m_studio->window()->findChildren<QQuickItem *>();
            const auto stack = std::find_if(items.cbegin(), items.cend(),
                [](const QQuickItem *item) { return item->property("entrance").isValid(); });
            return stack == items.cend() ? nullptr : *stack;
        };
        // Its first frame shows nothing of it, and is not kept waiting for it.
        QVERIFY(!findStack());
        QVERIFY(eventually([&] { return findStack(); }));
        QQuickItem *const stack = findStack();
        QVERIFY(stack->opacity() < 1);
        QCOMPARE(stack->transformOrigin(), QQuickItem::Center);

        QObject *animation = nullptr;
        for (const QObject *child : stack->findChildren<QObject *>()) {
            if (child->inherits("QQuickBehavior")) {
                animation = child->property("animation").value<QObject *>();
            }
        }
        QVERIFY(animation);
        QCOMPARE(animation->property("duration").toInt(), 800);
        const QEasingCurve easing = animation->property("easing").value<QEasingCurve>();
        QVERIFY(easing.valueForProgress(0.25) > 0.4);
        QVERIFY(1 - easing.valueForProgress(0.75) < 0.1);

        double last = 0;
        QVERIFY(time.passesUntil([&] {
            // Both go together, and never back.
            const bool grows =
                stack->opacity() >= last && qAbs(stack->scale() - (0.85 + 0.15 * stack->opacity())) < 1e-9;
            last = stack->opacity();
            return !grows || last == 1;
        }));
        QCOMPARE(stack->opacity(), 1.0);
        QCOMPARE(stack->scale(), 1.0);
    }

    void showsWhereTheKeyboardIsFromTheFirstTabOn_data()
    {
        QTest::addColumn<bool>("signedIn");
        QTest::newRow("login") << false;
        QTest::newRow("main window") << true;
    }
    void showsWhereTheKeyboardIsFromTheFirstTabOn()
    {
        QFETCH(bool, signedIn);
        if (signedIn) {
            opensSignedIn();
        } else {
            opensPastTheSplash();
            m_window->type(u"ada@example.org"_s);
        }
        m_window->press(Qt::Key_Tab);
        QVERIFY(m_studio->window()->activeFocusItem()->property("visualFocus").toBool());
    }

    void showsTheLoginScreenWithoutAToken_data()
    {
        QTest::addColumn<bool>("hasEmptyToken");
        QTest::newRow("absent") << false;
        QTest::newRow("empty") << true;
    }
    void showsTheLoginScreenWithoutAToken()
    {
        QFETCH(bool, hasEmptyToken);
        if (hasEmptyToken) {
            stores(u""_s);
        }
        opensPastTheSplash();
        QVERIFY(isLogin());
        QVERIFY(!isMain());
        QVERIFY(!auth().isAuthenticated());
        settle();
        QVERIFY(m_world->service.requests().isEmpty());
        // The form takes the keyboard.
        m_window->type(u"a"_s);
        QCOMPARE(m_window->field(u"Email"_s)->property("text").toString(), u"a"_s);
    }

    void showsTheMainWindowBeforeTheServiceAnswers()
    {
        stores(u"a token"_s);
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        opensPastTheSplash();
        QVERIFY(isMain());
        QVERIFY(!auth().hasCurrentUser());
        QVERIFY(m_window->shows(u"Guest"_s));
        m_window->click(m_window->button(u"Training"_s));
        QCOMPARE(selection(), SidebarItem::Training);
    }

    void showsTheMainWindowWithoutANetwork()
    {
        stores(u"a token"_s);
        m_world->environment.hosts.apiEndpoint = u"http://127.0.0.1:1"_s;
        CapturedOutput output;
        opensPastTheSplash();
        QVERIFY(eventually([&] { return !output.lines().isEmpty(); }));
        settle();
        QCOMPARE(output.lines().size(), 1);
        QVERIFY(output.lines().constFirst().startsWith(u"Failed to fetch user on launch: "_s));
        QVERIFY(isMain());
        QVERIFY(!Alerts::shared().isUp());
        QVERIFY(m_window->shows(u"Guest"_s));
        QCOMPARE(m_world->secrets.peek(auth().tokenKey).value_or(u"none"_s), u"a token"_s);
    }

    void fallsBackToTheLoginScreenOnAStaleToken()
    {
        stores(u"a stale token"_s);
        CapturedOutput output;
        opensPastTheSplash();
        QVERIFY(isMain());
        QVERIFY(eventually([this] { return isLogin() && !isMain(); }));
        QVERIFY(!m_world->secrets.peek(auth().tokenKey));
        QVERIFY(!auth().currentUser());
        QVERIFY(eventually([&] { return output.lines().size() == 1; }));
    }

    void showsNoSplashAfterALogout()
    {
        opensPastTheSplash();
        m_world->isSignedIn();
        QVERIFY(eventually([this] { return isMain() && !isLogin(); }));
        auth().logout();
        QVERIFY(eventually([this] { return isLogin() && !isMain(); }));
        QVERIFY(!isSplash());
        m_world->clock.advance(1h);
        settle();
        QVERIFY(isLogin());
        QVERIFY(!isSplash());
    }

    void makesTheLoginScreenAfreshAfterALogout()
    {
        opensPastTheSplash();
        m_window->type(u"ada@example.org"_s);
        m_world->isSignedIn();
        QVERIFY(eventually([this] { return isMain(); }));
        auth().logout();
        QVERIFY(eventually([this] { return isLogin(); }));
        QCOMPARE(m_window->field(u"Email"_s)->property("text").toString(), u""_s);
    }

    void goesAwayWithALoginThatWaits()
    {
        opensPastTheSplash();
        signsInAsFarAsTheBrowser();
        m_world->isSignedIn();
        QVERIFY(eventually([this] { return isMain(); }));
        QVERIFY(eventually([] { return !BrowserSession::shared().isWaiting(); }));
    }

    // The chores

    void doesItsChoresOnceEach_data()
    {
        QTest::addColumn<bool>("signedIn");
        QTest::newRow("signed out") << false;
        QTest::newRow("signed in") << true;
    }
    void doesItsChoresOnceEach()
    {
        QFETCH(bool, signedIn);
        if (signedIn) {
            stores(m_world->service.signsIn(u"ada@example.org"_s));
        }
        opens();
        // The look at the place of launch, the end of the splash, and the look for an update wait for their time.
        QCOMPARE(m_world->clock.scheduledCount(), 3);
        m_world->clock.advance(999ms);
        QCOMPARE(m_world->clock.scheduledCount(), 3);
        m_world->clock.advance(1ms);
        QCOMPARE(m_world->clock.scheduledCount(), 2);
        m_world->clock.advance(1'500ms);
        // The main window's first screen brings the tick of the analytics figures, the login screen the rest of its caret.
        QVERIFY(eventually([&] { return m_world->clock.scheduledCount() == 2; }));
        m_world->clock.advance(499ms);
        QCOMPARE(m_world->clock.scheduledCount(), 2);
        m_world->clock.advance(1ms);
        // What asks for the version watches the clock until it has its answer.
        QVERIFY(eventually([&] { return m_world->clock.scheduledCount() == 1; }));
        QCOMPARE(m_world->service.requests("GET", "/api/downloads/version").size(), 1);
    }

    // The sidebar

    void hasSevenRows()
    {
        opensSignedIn();
        QStringList titles;
        for (const QQuickItem *row : rows()) {
            titles.append(row->property("text").toString());
        }
        QCOMPARE(titles,
            QStringList({u"Dashboard"_s, u"Projects"_s, u"Datasets"_s, u"Models"_s, u"Training"_s, u"Analytics"_s,
                u"Settings"_s}));
    }

    void selectsByMouse_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("item");
        QTest::newRow("projects") << 1 << int(SidebarItem::Projects);
        QTest::newRow("datasets") << 2 << int(SidebarItem::Datasets);
        QTest::newRow("models") << 3 << int(SidebarItem::Models);
        QTest::newRow("training") << 4 << int(SidebarItem::Training);
        QTest::newRow("analytics") << 5 << int(SidebarItem::Analytics);
        QTest::newRow("settings") << 6 << int(SidebarItem::Settings);
    }
    void selectsByMouse()
    {
        QFETCH(int, row);
        QFETCH(int, item);
        opensSignedIn();
        QCOMPARE(selection(), SidebarItem::Dashboard);
        QCOMPARE(highlighted(), QList<int>{0});
        m_window->click(rows()[row]);
        QCOMPARE(selection(), item);
        QCOMPARE(highlighted(), QList<int>{row});
        QCOMPARE(destination()->property("source").toUrl(), SidebarItem::view(item));
        // And back.
        m_window->click(rows()[0]);
        QCOMPARE(selection(), SidebarItem::Dashboard);
    }

    void selectsByKeyboard()
    {
        opensSignedIn();
        for (int row : {1, 4, 6}) {
            QQuickItem *target = rows()[row];
            for (int i = 0; i < 40 && !target->hasActiveFocus(); ++i) {
                m_window->press(Qt::Key_Tab);
            }
            QVERIFY(target->hasActiveFocus());
            m_window->press(row == 4 ? Qt::Key_Space : Qt::Key_Return);
            QCOMPARE(highlighted(), QList<int>{row});
        }
        QCOMPARE(selection(), SidebarItem::Settings);
    }

    void marksTheSelectedRow()
    {
        opensSignedIn();
        m_window->click(rows()[4]);
        for (int i = 0; i < 7; ++i) {
            const QQuickItem *row = rows()[i];
            const bool isSelected = i == 4;
            const QQuickItem *icon = m_window->all(u"SymbolIcon"_s, row).value(0);
            const QQuickItem *title = m_window->all(u"Label"_s, row).value(0);
            QCOMPARE(colorOf(backgroundOf(row)), isSelected ? selected : clear);
            QCOMPARE(backgroundOf(row)->property("radius").toDouble(), 8.0);
            QCOMPARE(colorOf(icon), isSelected ? white : textSecondary);
            QCOMPARE(colorOf(title), isSelected ? white : textSecondary);
            QCOMPARE(fontOf(title), isSelected ? u"Inter 14 500"_s : u"Inter 14 400"_s);
            QCOMPARE(bool(QAccessible::queryAccessibleInterface(rows()[i])->state().selected), isSelected);

            QCOMPARE(icon->property("name").toString(), SidebarItem::icon(i));
            QCOMPARE(icon->property("size").toDouble(), 15.0);
            QCOMPARE(placeOf(icon).width(), 20.0);
            QCOMPARE(placeOf(icon).left(), placeOf(row).left() + 12);
            QCOMPARE(placeOf(title).left(), placeOf(icon).right() + 12);
            QCOMPARE(paddingOf(row), QSizeF(12, 8));
        }
    }

    void composesTheSidebar()
    {
        opensSignedIn();
        const QQuickItem *sidebar = this->sidebar();
        QCOMPARE(colorOf(sidebar), u"#ff050506"_s);
        QCOMPARE(placeOf(sidebar), QRectF(0, 0, 220, m_studio->window()->height()));

        const QQuickItem *logo = m_window->all(u"QQuickImage"_s, sidebar).value(0);
        QCOMPARE(placeOf(logo).size(), QSizeF(24, 24));
        QCOMPARE(logo->property("status").toInt(), 1); // ready
        QCOMPARE(placeOf(logo).left(), 20.0);
        const QQuickItem *brand = m_window->text(u"Quillmere"_s, sidebar);
        QCOMPARE(fontOf(brand), u"Gabarito 15 700"_s);
        QVERIFY(isTracked(brand, 0.015));
        QCOMPARE(colorOf(brand), white);
        const QQuickItem *studio = m_window->text(u"STUDIO"_s, sidebar);
        QCOMPARE(fontOf(studio), u"Inter 10 500"_s);
        QVERIFY(isTracked(studio, 1));
        QCOMPARE(colorOf(studio), textSecondary);
        QCOMPARE(placeOf(studio).left(), placeOf(brand).left());
        QCOMPARE(std::min(placeOf(logo).top(), placeOf(brand).top()), 24.0);
        const double headerEnd = std::max(placeOf(logo).bottom(), placeOf(studio).bottom());
        QCOMPARE(placeOf(rows()[0]).top(), headerEnd + 24);

        const QQuickItem *system = m_window->text(u"SYSTEM"_s, sidebar);
        QCOMPARE(fontOf(system), u"Inter 11 700"_s);
        QCOMPARE(colorOf(system), textTertiary);
        QCOMPARE(gapBetween(rows()[5], system), 24.0);
        QVERIFY(placeOf(system).bottom() <= placeOf(rows()[6]).top());

        const QQuickItem *workspace = m_window->text(u"Pro Workspace"_s, sidebar);
        QCOMPARE(fontOf(workspace), u"Inter 13 500"_s);
        QCOMPARE(colorOf(workspace), white);
        const QQuickItem *guest = m_window->text(u"Guest"_s, sidebar);
        QCOMPARE(fontOf(guest), u"Inter 11 400"_s);
        QCOMPARE(colorOf(guest), textTertiary);
        QCOMPARE(placeOf(guest).left(), placeOf(workspace).left());
        const QQuickItem *person = m_window->symbol(u"person.2.fill"_s, sidebar);
        QCOMPARE(person->property("size").toDouble(), 14.0);
        QCOMPARE(colorOf(person), textSecondary);
        const QQuickItem *avatar = person->parentItem();
        QCOMPARE(placeOf(avatar).size(), QSizeF(36, 36));
        QCOMPARE(avatar->property("radius").toDouble(), 18.0);
        QCOMPARE(colorOf(avatar), u"#ff27272a"_s);
        const QQuickItem *footer = avatar->parentItem();
        QCOMPARE(colorOf(footer), u"#8009090b"_s);
        QCOMPARE(placeOf(avatar).topLeft(), placeOf(footer).topLeft() + QPointF(16, 16));
        QCOMPARE(placeOf(avatar).bottom(), placeOf(footer).bottom() - 16);
        QCOMPARE(placeOf(footer).bottomLeft(), placeOf(sidebar).bottomLeft());
        QCOMPARE(placeOf(footer).width(), 220.0);
    }

    void keepsTheFocusRingWithinItsRow()
    {
        opensSignedIn();
        const QQuickItem *models = rows()[3];
        m_window->hover(models);
        QCOMPARE(colorOf(backgroundOf(models)), clear);
        for (int i = 0; i < 40 && !models->hasActiveFocus(); ++i) {
            m_window->press(Qt::Key_Tab);
        }
        const auto rings = m_window->all(u"FocusRing"_s, sidebar());
        QCOMPARE(rings.size(), 1);
        QCOMPARE(placeOf(rings[0]), placeOf(models));
        QCOMPARE(rings[0]->property("radius").toDouble(), 8.0);
    }

    void isAsWideAsItIsDraggedWithinItsBounds()
    {
        opensSignedIn();
        for (const auto &[to, width] : {std::pair{250, 250.0}, {500, 260.0}, {20, 200.0}, {220, 220.0}}) {
            const int from = int(placeOf(sidebar()).right());
            QTest::mousePress(m_studio->window(), Qt::LeftButton, {}, {from, 400});
            QTest::mouseMove(m_studio->window(), {(from + to) / 2, 400});
            QTest::mouseMove(m_studio->window(), {to, 400});
            QTest::mouseRelease(m_studio->window(), Qt::LeftButton, {}, {to, 400});
            QCOMPARE(placeOf(sidebar()).width(), width);
            QCOMPARE(placeOf(destination()).left(), width);
            QCOMPARE(placeOf(destination()).right(), double(m_studio->window()->width()));
        }
        QCOMPARE(selection(), SidebarItem::Dashboard);
    }

    void namesTheUserInItsFooter()
    {
        opensSignedIn();
        QVERIFY(m_window->shows(u"Guest"_s));
        auth().setCurrentUser(UserProfile{u"u1"_s, u"ada@example.org"_s, u"Ada"_s, std::nullopt});
        QVERIFY(m_window->shows(u"ada@example.org"_s));
        QVERIFY(!m_window->shows(u"Guest"_s));
        QVERIFY(m_window->shows(u"Pro Workspace"_s));
        auth().setCurrentUser({});
        QVERIFY(m_window->shows(u"Guest"_s));
    }

    void cutsALongAddressInItsFooter()
    {
        opensSignedIn();
        const auto address = QString(100, u'w') + u"@example.org"_s;
        auth().setCurrentUser(UserProfile{u"u1"_s, address, {}, {}});
        const QQuickItem *text = m_window->text(address);
        QVERIFY(text->property("truncated").toBool());
        QVERIFY(placeOf(text).right() <= placeOf(sidebar()).right() - 16);
    }

    void doesNothingWhenItsFooterIsClicked()
    {
        opensSignedIn();
        const QStringList before = m_window->texts();
        const QQuickItem *focused = m_studio->window()->activeFocusItem();
        for (const QQuickItem *item :
            {m_window->text(u"Pro Workspace"_s), m_window->text(u"Guest"_s), m_window->symbol(u"person.2.fill"_s)}) {
            m_window->click(item);
            settle();
            QCOMPARE(m_window->texts(), before);
            QCOMPARE(selection(), SidebarItem::Dashboard);
            QCOMPARE(m_studio->window()->activeFocusItem(), focused);
        }
        QVERIFY(auth().isAuthenticated());
        QVERIFY(
            m_window->all(u"ButtonBase"_s, m_window->text(u"Pro Workspace"_s)->parentItem()->parentItem()).isEmpty());
    }

    // Destinations

    void showsAViewForEachSelection_data()
    {
        QTest::addColumn<int>("item");
        for (int item = SidebarItem::None; item < SidebarItem::count; ++item) {
            QTest::addRow("%s", item < 0 ? "none" : qPrintable(SidebarItem::rawValue(item))) << item;
        }
    }
    void showsAViewForEachSelection()
    {
        QFETCH(int, item);
        opensSignedIn();
        content()->setProperty("selection", item);
        QCOMPARE(destination()->property("status").toInt(), 1); // ready
        const auto *view = destination()->property("item").value<QQuickItem *>();
        QVERIFY(view);
        QCOMPARE(destination()->property("source").toUrl(), SidebarItem::view(item));
        // Beside the sidebar, below the strip of the window's own marks.
        const QSize window = m_studio->window()->size();
        QCOMPARE(placeOf(view), QRectF(220, 40, window.width() - 220, window.height() - 40));
        QCOMPARE(colorOf(content()), u"#ff000000"_s);
        settle();

        // Six of them, and no selection at all, highlight no row.
        const bool hasRow = item >= 0 && item <= SidebarItem::Settings;
        QCOMPARE(highlighted(), hasRow ? QList<int>{item} : QList<int>{});
    }

    // The documentation has a table of shortcuts. It is a table and no more.
    void knowsNoneOfTheDocumentedShortcuts_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        const QList<std::pair<const char *, Qt::Key>> keys{{"1", Qt::Key_1}, {"2", Qt::Key_2}, {"3", Qt::Key_3},
            {"4", Qt::Key_4}, {"comma", Qt::Key_Comma}, {"N", Qt::Key_N}, {"U", Qt::Key_U}, {"T", Qt::Key_T},
            {"F", Qt::Key_F}};
        for (const auto &[name, key] : keys) {
            QTest::addRow("Control and %s", name) << key << Qt::KeyboardModifiers(Qt::ControlModifier);
            QTest::addRow("Meta and %s", name) << key << Qt::KeyboardModifiers(Qt::MetaModifier);
        }
    }
    void knowsNoneOfTheDocumentedShortcuts()
    {
        QFETCH(Qt::Key, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        opensSignedIn();
        m_window->click(rows()[4]);
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        m_world->clock.advance(1s);
        QVERIFY(eventually([this] { return m_world->service.requests().size() == 3; })); // user, jobs, newest version
        for (const int item : {SidebarItem::Training, SidebarItem::Documentation}) {
            content()->setProperty("selection", item);
            rows()[4]->forceActiveFocus(Qt::TabFocusReason);
            settle();
            const QStringList before = m_window->texts();
            const auto requests = m_world->service.requests().size();
            m_window->press(key, modifiers);
            m_world->clock.advance(2s);
            settle();
            QCOMPARE(m_window->texts(), before);
            QCOMPARE(selection(), item);
            QCOMPARE(m_studio->window()->activeFocusItem(), rows()[4]);
            QCOMPARE(m_world->service.requests().size(), requests);
            QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
            QVERIFY(!Alerts::shared().isUp());
        }
    }

    void showsTheDashboardsViewForNoSelection()
    {
        opensSignedIn();
        const QUrl dashboard = destination()->property("source").toUrl();
        content()->setProperty("selection", SidebarItem::None);
        QCOMPARE(destination()->property("source").toUrl(), dashboard);
        QCOMPARE(highlighted(), QList<int>());
    }

    void makesADestinationAfreshEachTime()
    {
        opensSignedIn();
        m_window->click(rows()[4]);
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        m_window->click(m_window->control(QAccessible::RadioButton, u"Failed"_s));
        const QPointer<QObject> first = destination()->property("item").value<QObject *>();
        QCOMPARE(jobRequests(), 1);

        m_window->click(rows()[0]);
        QVERIFY(eventually([&] { return first.isNull(); }));
        m_window->click(rows()[4]);
        QVERIFY(eventually([this] { return jobRequests() == 2; }));
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        auto *all = m_window->control(QAccessible::RadioButton, u"All"_s);
        QVERIFY(QAccessible::queryAccessibleInterface(all)->state().checked);
    }

    void doesNotMakeTheSelectedDestinationAgain()
    {
        opensSignedIn();
        m_window->click(rows()[4]);
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        const QPointer<QObject> first = destination()->property("item").value<QObject *>();
        m_window->click(rows()[4]);
        settle();
        QVERIFY(first);
        QCOMPARE(destination()->property("item").value<QObject *>(), first.data());
        QVERIFY(m_window->shows(u"No Training Jobs"_s));
        QCOMPARE(jobRequests(), 1);
    }

    void startsAtTheDashboardAfterEachSignIn()
    {
        opensSignedIn();
        m_window->click(rows()[4]);
        auth().logout();
        QVERIFY(eventually([this] { return isLogin(); }));
        m_world->isSignedIn();
        QVERIFY(eventually([this] { return isMain(); }));
        QCOMPARE(selection(), SidebarItem::Dashboard);
        QCOMPARE(highlighted(), QList<int>{0});
    }

    // What other starts of the program hand over

    void printsAUrlThatNobodyWaitsFor()
    {
        opensPastTheSplash();
        const QStringList before = m_window->texts();
        CapturedOutput output;
        receives(callback);
        settle();
        QCOMPARE(output.lines(), QStringList{u"Received URL: "_s + callback});
        QVERIFY(!auth().isAuthenticated());
        QVERIFY(!m_world->secrets.peek(auth().tokenKey));
        QVERIFY(!m_world->secrets.peek(auth().refreshTokenKey));
        QCOMPARE(m_window->texts(), before);
    }

    void printsAUrlOverTheMainWindowAndTheSplashToo()
    {
        CapturedOutput output;
        opens();
        receives(callback);
        QVERIFY(isSplash());
        m_world->isSignedIn();
        m_world->clock.advance(2'500ms);
        QVERIFY(eventually([this] { return isMain(); }));
        const QString token = *m_world->secrets.peek(auth().tokenKey);
        receives(u"com.quillmere.studio:anything?x=1"_s);
        settle();
        QCOMPARE(output.lines(),
            QStringList({u"Received URL: "_s + callback, u"Received URL: com.quillmere.studio:anything?x=1"_s}));
        QCOMPARE(m_world->secrets.peek(auth().tokenKey).value_or(u"none"_s), token);
        QVERIFY(isMain());
    }

    void doesNotPrintWhatIsNoUrlOfItsScheme_data()
    {
        QTest::addColumn<QString>("message");
        QTest::newRow("nothing") << u""_s;
        QTest::newRow("words") << u"--help me"_s;
        QTest::newRow("another scheme") << u"https://a.example/#access_token=a"_s;
        QTest::newRow("a URL that does not parse") << u"com.quillmere.studio://call back"_s;
        QTest::newRow("a URL that does not parse for an escape") << u"com.quillmere.studio://callback#%zz"_s;
        QTest::newRow("a longer scheme") << u"com.quillmere.studios://callback"_s;
        QTest::newRow("a path") << u"/tmp/com.quillmere.studio"_s;
    }
    void doesNotPrintWhatIsNoUrlOfItsScheme()
    {
        QFETCH(QString, message);
        opensPastTheSplash();
        signsInAsFarAsTheBrowser();
        CapturedOutput output;
        receives(message);
        settle();
        QCOMPARE(output.lines(), QStringList());
        QVERIFY(BrowserSession::shared().isWaiting());
        QVERIFY(!auth().isAuthenticated());
    }

    void endsASignInThatWaits()
    {
        opensPastTheSplash();
        signsInAsFarAsTheBrowser();
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        CapturedOutput output;
        receives(callback);
        QVERIFY(eventually([this] { return isMain() && !isLogin(); }));
        QCOMPARE(output.lines(), QStringList());
        QCOMPARE(m_world->secrets.peek(auth().tokenKey).value_or(u"none"_s), u"a"_s);
        QCOMPARE(m_world->secrets.peek(auth().refreshTokenKey).value_or(u"none"_s), u"b"_s);
        QVERIFY(m_window->shows(u"ada@example.org"_s));
    }

    void comesToTheFrontForAnyMessage()
    {
        opensPastTheSplash();
        m_studio->window()->showMinimized();
        QVERIFY(m_studio->window()->windowStates().testFlag(Qt::WindowMinimized));
        receives(u""_s);
        QVERIFY(!m_studio->window()->windowStates().testFlag(Qt::WindowMinimized));
        QVERIFY(QTest::qWaitForWindowActive(m_studio->window()));
    }

    // Through the screens

    void logsOutFromTheSettingsWithoutAQuestion()
    {
        opensSignedIn();
        m_world->secrets.save(u"refresh"_s, auth().refreshTokenKey);
        m_window->click(m_window->button(u"Settings"_s));
        QVERIFY(eventually([this] { return m_window->button(u"Log Out"_s) != nullptr; }));
        m_window->click(m_window->button(u"Log Out"_s));
        QVERIFY(eventually([this] { return isLogin() && !isMain(); }));
        QVERIFY(!m_world->secrets.peek(auth().tokenKey));
        QVERIFY(!m_world->secrets.peek(auth().refreshTokenKey));
    }

    void goesFromNewTrainingToTheSuccessAndBackToTheJobs()
    {
        opensSignedIn();
        m_window->click(m_window->button(u"Training"_s));
        QVERIFY(eventually([this] { return m_window->shows(u"No Training Jobs"_s); }));
        const auto loads = [this] { return m_world->service.requests("GET", "/v1/fine-tuning/jobs").size(); };
        QCOMPARE(loads(), 1);

        m_window->click(m_window->button(u"New Training"_s));
        QVERIFY(eventually([this] { return m_window->shows(u"Select Training Data"_s); }));
        m_window->click(m_window->text(u"Sample Dataset"_s));
        for (const QString &title : {u"Choose Base Model"_s, u"Configure Training"_s, u"Review & Start"_s}) {
            m_window->click(m_window->button(u"Continue"_s));
            QVERIFY2(eventually([&] { return m_window->shows(title); }), qPrintable(title));
        }
        m_window->click(m_window->button(u"Start Fine-Tuning"_s));
        QVERIFY(eventually([this] { return m_window->shows(u"Starting..."_s); }));
        m_world->clock.advance(2s);
        QVERIFY(eventually([this] { return m_window->shows(u"Training Started!"_s); }));
        m_window->click(m_window->button(u"Done"_s));
        QVERIFY(eventually([this] { return !m_window->shows(u"Training Started!"_s); }));
        QVERIFY(m_window->shows(u"Review & Start"_s));

        m_window->press(Qt::Key_Escape);
        QVERIFY(eventually([this] { return !m_window->shows(u"Fine-Tune Wizard"_s); }));
        QVERIFY(m_window->shows(u"No Training Jobs"_s));
        QCOMPARE(loads(), 1);
    }

private:
    void stores(const QString &token) { m_world->secrets.save(token, auth().tokenKey); }

    void opens()
    {
        m_studio = std::make_unique<Quillmere_StudioApp>();
        QVERIFY(m_studio->open());
        m_studio->window()->requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(m_studio->window()));
        m_window = std::make_unique<Window>(*m_studio->window());
    }

    void receives(const QString &message)
    {
        // The offscreen platform knows no windows above others.
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        m_studio->receive(message);
    }

    void opensPastTheSplash()
    {
        opens();
        m_world->clock.advance(RootViewState::splashTime);
        QVERIFY(eventually([this] { return !isSplash(); }));
    }

    // In a session whose user the service has not told yet, and that has no jobs.
    void opensSignedIn()
    {
        m_world->service.hasJobs("[]");
        m_world->service.on("GET /v1/auth/me").hangsBeforeReply();
        stores(m_world->service.signsIn(u"ada@example.org"_s));
        opensPastTheSplash();
        QVERIFY(isMain());
    }

    void signsInAsFarAsTheBrowser()
    {
        m_world->service.hasAccount(u"ada@example.org"_s, u"JBSWY3DPEHPK3PXP"_s);
        m_window->type(u"ada@example.org"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(u"Enter Code"_s) && !m_window->shows(u"Continue"_s); }));
        m_window->type(StandIn::totp(u"JBSWY3DPEHPK3PXP"_s, m_world->clock.now()));
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([] { return BrowserSession::shared().isWaiting(); }));
    }

    bool isSplash() const { return !m_window->all(u"SplashScreenView"_s).isEmpty(); }
    bool isLogin() const { return m_window->shows(u"Seamless Model Sync"_s); }
    bool isMain() const { return !m_window->all(u"ContentView"_s).isEmpty(); }

    QQuickItem *content() const { return m_window->all(u"ContentView"_s).value(0); }
    QQuickItem *sidebar() const { return m_window->all(u"SidebarView"_s).value(0); }
    QList<QQuickItem *> rows() const { return m_window->all(u"SidebarRow"_s); }
    int selection() const { return content()->property("selection").toInt(); }

    QQuickItem *destination() const
    {
        for (QQuickItem *child : content()->childItems()) {
            if (child->inherits("QQuickLoader")) {
                return child;
            }
        }
        return nullptr;
    }

    QList<int> highlighted() const
    {
        QList<int> highlighted;
        const auto all = rows();
        for (int i = 0; i < all.size(); ++i) {
            if (colorOf(backgroundOf(all[i])) != clear) {
                highlighted.append(i);
            }
        }
        return highlighted;
    }

    qsizetype jobRequests() const { return m_world->service.requests("GET", "/v1/fine-tuning/jobs").size(); }

    // Fonts keep the space between letters in sixty-fourths of a point.
    static bool isTracked(const QQuickItem *text, double spacing)
    {
        const QFont font = text->property("font").value<QFont>();
        return font.letterSpacingType() == QFont::AbsoluteSpacing && qAbs(font.letterSpacing() - spacing) < 1.0 / 64;
    }

    std::unique_ptr<TestEnvironment> m_world;
    std::unique_ptr<Quillmere_StudioApp> m_studio;
    std::unique_ptr<Window> m_window;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_MainWindow)
#include "tst_MainWindow.moc"
