#include "identity/AuthManager.h"
#include "support/CapturedOutput.h"
#include "support/ViewTest.h"
#include "workspace/settings/SettingsViewModel.h"

#include <QDirIterator>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTemporaryDir>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;

namespace {

const QString white = u"#ffffffff"_s;
const QString secondary = u"#ffa1a1aa"_s;
const QString tertiary = u"#ff71717a"_s;
const QString accent = u"#ff3b82f6"_s;
const QString green = u"#ff22c55e"_s;
const QString red = u"#ffef4444"_s;
const QString surface = u"#ff121214"_s;
const QString border = u"#ff27272a"_s;

constexpr int paneLeft = 221; // the column and its line
constexpr int pageLeft = paneLeft + 32;

UserProfile user(const std::optional<QString> &name, const QString &email = u"ada@example.org"_s)
{
    return {.id = u"u1"_s, .email = email, .name = name, .avatarUrl = {}};
}

} // namespace

class tst_SettingsView : public ViewTest {
    Q_OBJECT

public:
    // Whatever would be written for the user lands here.
    static void initMain()
    {
        static const QTemporaryDir home;
        for (const char *place : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
            qputenv(place, home.path().toLocal8Bit());
        }
    }

private slots:
    // The shell

    void keepsTheLookOfItsColumn()
    {
        open();
        QCOMPARE(colorOf(m_view->rootObject()), u"#ff09090b"_s);
        const auto rows = m_window->all(u"SettingsRow"_s);
        QCOMPARE(rows.size(), 5);
        auto *column = rows[4]->parentItem();
        QCOMPARE(column->size(), QSizeF(220, 760));
        QCOMPARE(colorOf(column), u"#ff050506"_s);

        expectRow(rows[0], u"person.circle"_s, u"Account"_s, white);
        expectRow(rows[1], u"creditcard"_s, u"Subscription"_s, secondary);
        expectRow(rows[2], u"gearshape"_s, u"Preferences"_s, secondary);
        expectRow(rows[3], u"info.circle"_s, u"About"_s, secondary);
        expectRow(rows[4], u"rectangle.portrait.and.arrow.right"_s, u"Log Out"_s, red);
        QCOMPARE(placeOf(rows[0]).top(), 20.0);
        for (int i = 1; i < 4; ++i) {
            QCOMPARE(placeOf(rows[i]).top() - placeOf(rows[i - 1]).bottom(), 4.0);
        }
        QCOMPARE(placeOf(rows[4]).bottom(), 740.0);
        QCOMPARE(ground(rows[0]), u"#333b82f6"_s);
        QCOMPARE(ground(rows[1]), u"#00000000"_s);
        QCOMPARE(ground(rows[4]), u"#00000000"_s);

        auto *line = m_window->all(u"Divider"_s).first();
        QCOMPARE(placeOf(line), QRectF(220, 0, 1, 760));
        QCOMPARE(colorOf(line), border);
    }

    void showsTheSectionThatIsSelected_data()
    {
        QTest::addColumn<QString>("section");
        for (const char *section : {"Account", "Subscription", "Preferences", "About"}) {
            QTest::newRow(section) << QString::fromLatin1(section);
        }
    }
    void showsTheSectionThatIsSelected()
    {
        QFETCH(QString, section);
        open();
        QVERIFY(!m_window->all(u"AccountSection"_s).isEmpty());
        choose(section);
        for (const QString &each : {u"Account"_s, u"Subscription"_s, u"Preferences"_s, u"About"_s}) {
            QCOMPARE(!m_window->all(each + u"Section"_s).isEmpty(), each == section);
        }
        for (auto *row : m_window->all(u"SettingsRow"_s).mid(0, 4)) {
            QCOMPARE(row->property("selected").toBool(), row->property("text").toString() == section);
        }
        auto *title = page()->childItems().first();
        QCOMPARE(title->property("text").toString(), section);
        QCOMPARE(fontOf(title), u"Space Grotesk 24 700"_s);
        QCOMPARE(colorOf(title), white);
        QCOMPARE(placeOf(title).topLeft(), QPointF(pageLeft, 32));
        QCOMPARE(page()->width(), 980.0 - pageLeft - 32);
        QCOMPARE(page()->property("spacing").toDouble(), 24.0);
    }

    void selectsSectionsByKeyboard()
    {
        open();
        for (int i = 0; i < 2; ++i) {
            m_window->press(Qt::Key_Tab);
        }
        m_window->press(Qt::Key_Space);
        QVERIFY(!m_window->all(u"SubscriptionSection"_s).isEmpty());
        m_window->press(Qt::Key_Tab);
        m_window->press(Qt::Key_Return);
        QVERIFY(!m_window->all(u"PreferencesSection"_s).isEmpty());
    }

    void scrollsASectionThatIsTooHighAndShowsTheNextFromItsTop()
    {
        open({800, 300});
        choose(u"Preferences"_s);
        auto *pane = page()->parentItem()->parentItem()->parentItem();
        QCOMPARE(pane->property("contentHeight").toDouble(), page()->height() + 64);
        pane->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_End);
        QVERIFY(pane->property("contentY").toDouble() > 0);
        QCOMPARE(placeOf(page()).bottom(), 300.0 - 32);
        choose(u"Subscription"_s);
        QCOMPARE(placeOf(page()).top(), 32.0);
    }

    void logsOutAtOnceWithoutAQuestion()
    {
        m_world->isSignedIn();
        m_world->secrets.save(u"the refresh token"_s, u"quillmere_refresh_token"_s);
        open();
        QVERIFY(eventually([&] { return AuthManager::shared().hasCurrentUser(); }));
        m_world->service.forgetRequests();
        m_window->click(m_window->button(u"Log Out"_s));
        QVERIFY(!AuthManager::shared().isAuthenticated());
        QVERIFY(!AuthManager::shared().hasCurrentUser());
        QVERIFY(!m_world->secrets.peek(u"quillmere_auth_token"_s));
        QVERIFY(!m_world->secrets.peek(u"quillmere_refresh_token"_s));
        QVERIFY(m_window->all(u"AlertPanel"_s).isEmpty());
        settle();
        QVERIFY(m_world->service.requests().isEmpty());
    }

    void loadsTheUserEachTimeItAppears()
    {
        m_world->isSignedIn();
        for (int visit = 1; visit <= 2; ++visit) {
            open();
            QVERIFY(eventually([&] { return !model()->isLoading(); }));
            QCOMPARE(m_world->service.requests("GET", "/v1/auth/me").size(), visit);
            choose(u"About"_s);
            choose(u"Account"_s);
            close();
        }
        settle();
        QCOMPARE(m_world->service.requests("GET", "/v1/auth/me").size(), 2);
    }

    // Account

    void keepsTheLookOfAUser()
    {
        AuthManager::shared().setCurrentUser(user(u"ada lovelace"_s));
        open();
        auto *card = m_window->all(u"SettingsCard"_s).first();
        expectCard(card, 12);
        auto *initial = m_window->text(u"A"_s, card);
        QCOMPARE(fontOf(initial), u"Inter 32 700"_s);
        QCOMPARE(colorOf(initial), accent);
        auto *avatar = initial->parentItem();
        QCOMPARE(placeIn(avatar, card).topLeft(), QPointF(24, 24));
        QCOMPARE(avatar->size(), QSizeF(80, 80));
        QCOMPARE(avatar->property("radius").toDouble(), 40.0);
        QCOMPARE(colorOf(avatar), u"#333b82f6"_s);
        QVERIFY(!m_window->symbol(u"person.fill"_s));

        auto *name = m_window->text(u"ada lovelace"_s, card);
        QCOMPARE(fontOf(name), u"Space Grotesk 18 500"_s);
        QCOMPARE(colorOf(name), white);
        QCOMPARE(placeIn(name, card).left(), 24.0 + 80 + 20);
        auto *email = m_window->text(u"ada@example.org"_s, card);
        QCOMPARE(fontOf(email), u"Inter 14 400"_s);
        QCOMPARE(colorOf(email), secondary);
        QCOMPARE(placeOf(email).top() - placeOf(name).bottom(), 6.0);
        auto *edit = m_window->button(u"Edit Profile"_s);
        QVERIFY(QString::fromLatin1(edit->metaObject()->className()).startsWith(u"SecondaryButton"_s));
        QCOMPARE(placeIn(edit, card).right(), card->width() - 24);
        QCOMPARE(card->height(), 80.0 + 48);
    }

    void showsThatNobodyIsSignedIn()
    {
        open();
        QCOMPARE(fontOf(m_window->text(u"Not Signed In"_s)), u"Space Grotesk 18 500"_s);
        auto *person = m_window->symbol(u"person.fill"_s);
        QCOMPARE(person->property("size").toInt(), 32);
        QCOMPARE(colorOf(person), tertiary);
        QVERIFY(m_window->shows(u"Not authenticated"_s));
        QVERIFY(!m_window->texts(m_window->all(u"SettingsCard"_s).first()).contains(QString()));
    }

    void callsAUserWithoutANameUser()
    {
        AuthManager::shared().setCurrentUser(user({}, u"grace@example.org"_s));
        open();
        QVERIFY(m_window->shows(u"User"_s));
        QVERIFY(m_window->shows(u"G"_s));
        QVERIFY(m_window->shows(u"grace@example.org"_s));
    }

    void showsAnyNameAsItStands_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("markup") << u"<b>Ada</b><br>&amp;"_s;
        QTest::newRow("quotes") << u"\"O'Neil\""_s;
        QTest::newRow("emoji") << u"👩‍👩‍👧‍👧"_s;
        QTest::newRow("right to left") << u"عائشة"_s;
        QTest::newRow("ten thousand characters") << QString(10'000, u'x');
        QTest::newRow("lines") << u"one\ntwo"_s;
    }
    void showsAnyNameAsItStands()
    {
        QFETCH(QString, name);
        AuthManager::shared().setCurrentUser(user(name, name));
        open();
        auto *card = m_window->all(u"SettingsCard"_s).first();
        QCOMPARE(card->height(), 128.0);
        auto *avatar = card->childItems().first()->childItems().first()->childItems().first();
        QCOMPARE(avatar->size(), QSizeF(80, 80));
        QVERIFY(avatar->childItems().first()->property("contentWidth").toDouble() <= 80);
        int shown = 0;
        for (auto *label : m_window->all(u"Label"_s)) {
            if (label->property("text").toString() == name && !avatar->isAncestorOf(label)) {
                ++shown;
                QCOMPARE(label->property("textFormat").toInt(), int(Qt::PlainText));
                QCOMPARE(label->property("lineCount").toInt(), 1);
                QCOMPARE(placeIn(label, card).left(), 124.0);
                QVERIFY(placeOf(label).right() < placeOf(m_window->button(u"Edit Profile"_s)).left());
                QVERIFY(label->property("contentWidth").toDouble() <= label->width());
            }
        }
        QCOMPARE(shown, 2);
    }

    void showsTheMaskedToken()
    {
        m_world->secrets.save(u"abcdXYZsecretXYZwxyz"_s, u"quillmere_auth_token"_s);
        open();
        settle();
        auto *heading = m_window->text(u"API Access"_s);
        QCOMPARE(fontOf(heading), u"Inter 14 500"_s);
        QCOMPARE(colorOf(heading), secondary);
        auto *card = m_window->all(u"SettingsCard"_s)[1];
        expectCard(card, 8);
        QCOMPARE(placeOf(card).top() - placeOf(heading).bottom(), 16.0);
        auto *label = m_window->text(u"Auth Token"_s, card);
        QCOMPARE(fontOf(label), u"Inter 12 400"_s);
        QCOMPARE(colorOf(label), tertiary);
        auto *token = m_window->text(u"abcd••••••••wxyz"_s, card);
        QCOMPARE(fontOf(token), u"Geist Mono 12 400"_s);
        QCOMPARE(colorOf(token), white);
        QCOMPARE(placeIn(token, card).left(), 16.0);
        QCOMPARE(placeOf(token).top() - placeOf(label).bottom(), 4.0);
        auto *button = m_window->button(u"Regenerate"_s);
        QVERIFY(QString::fromLatin1(button->metaObject()->className()).startsWith(u"SecondaryButton"_s));
        QCOMPARE(placeIn(button, card).right(), card->width() - 16);
    }

    void showsNoTokenUntilTheStoreAnswers()
    {
        m_world->secrets.save(u"abcdefghi"_s, u"quillmere_auth_token"_s);
        m_world->secrets.hold();
        open();
        settle();
        QVERIFY(m_window->shows(u"Not authenticated"_s));
        m_world->secrets.answer();
        QVERIFY(eventually([&] { return m_window->shows(u"abcd••••••••fghi"_s); }));
    }

    void readsTheTokenAnewWhenTheSectionIsShownAgain()
    {
        m_world->secrets.save(u"12345678"_s, u"quillmere_auth_token"_s);
        open();
        settle();
        QVERIFY(m_window->shows(u"Not authenticated"_s));
        choose(u"About"_s);
        m_world->secrets.save(u"123456789"_s, u"quillmere_auth_token"_s);
        choose(u"Account"_s);
        QVERIFY(m_window->shows(u"1234••••••••6789"_s));
    }

    void keepsTheLastUserOnDisplayWhenTheServiceFails()
    {
        m_world->isSignedIn();
        m_world->service.on("GET /v1/auth/me").answers(500);
        AuthManager::shared().setCurrentUser(user(u"Ada"_s));
        CapturedOutput output;
        open();
        QVERIFY(eventually([&] { return !model()->isLoading(); }));
        QVERIFY(m_window->shows(u"Ada"_s));
        QCOMPARE(output.lines().size(), 1);
    }

    // Subscription

    void showsThePlan_data()
    {
        QTest::addColumn<QString>("plan");
        QTest::addColumn<QString>("badge");
        QTest::addColumn<QString>("tint");
        QTest::addColumn<QString>("usage");
        QTest::newRow("none") << QString() << u"FREE"_s << u"#ffa1a1aa"_s << u"2/3"_s;
        QTest::newRow("free") << u"free"_s << u"FREE"_s << u"#ffa1a1aa"_s << u"2/3"_s;
        QTest::newRow("pro") << u"pro"_s << u"PRO"_s << u"#ff3b82f6"_s << u"2/20"_s;
        QTest::newRow("enterprise") << u"enterprise"_s << u"ENTERPRISE"_s << u"#ffa855f7"_s << u"2/100"_s;
        QTest::newRow("unknown") << u"<b>x</b>"_s << u"<B>X</B>"_s << u"#ffa1a1aa"_s << u"2/3"_s;
    }
    void showsThePlan()
    {
        QFETCH(QString, plan);
        QFETCH(QString, badge);
        QFETCH(QString, tint);
        QFETCH(QString, usage);
        open();
        choose(u"Subscription"_s);
        if (!plan.isEmpty()) {
            model()->setSubscription(SubscriptionInfo{true, plan, {}, {u"Everything & more"_s}});
            redraw();
        }
        auto *card = m_window->all(u"SettingsCard"_s).first();
        expectCard(card, 12);
        auto *shown = m_window->all(u"Badge"_s).first();
        auto *word = m_window->text(badge, shown);
        QVERIFY(word);
        QCOMPARE(fontOf(word), u"Inter 12 700"_s);
        QCOMPARE(colorOf(word), tint);
        QCOMPARE(colorOf(shown), u"#26"_s + tint.mid(3));
        QCOMPARE(shown->property("radius").toDouble(), 4.0);
        QCOMPARE(shown->size(), QSizeF(std::ceil(word->implicitWidth() + 20), word->implicitHeight() + 8));
        QCOMPARE(placeIn(shown, card).left(), 24.0);
        auto *current = m_window->text(u"Current Plan"_s);
        QCOMPARE(fontOf(current), u"Inter 12 400"_s);
        QCOMPARE(colorOf(current), tertiary);
        QCOMPARE(placeOf(current).top() - placeOf(shown).bottom(), 6.0);
        QVERIFY(m_window->shows(usage));

        auto *active = m_window->text(u"Active"_s);
        QCOMPARE(active != nullptr, !plan.isEmpty());
        if (active) {
            QCOMPARE(fontOf(active), u"Inter 11 500"_s);
            QCOMPARE(colorOf(active), green);
            auto *dot = active->parentItem()->childItems().first();
            QCOMPARE(dot->size(), QSizeF(6, 6));
            QCOMPARE(colorOf(dot), green);
            QCOMPARE(placeOf(active).left() - placeOf(dot).right(), 4.0);
            QCOMPARE(placeOf(dot).left() - placeOf(shown).right(), 8.0);
            QVERIFY(m_window->shows(u"Everything & more"_s));
            QVERIFY(!m_window->shows(u"Local fine-tuning"_s));
        }
    }

    void showsNoActiveMarkForAPlanThatIsNot()
    {
        open();
        choose(u"Subscription"_s);
        model()->setSubscription(SubscriptionInfo{false, u"pro"_s, {}, {}});
        QVERIFY(m_window->shows(u"PRO"_s));
        QVERIFY(!m_window->shows(u"Active"_s));
        QVERIFY(m_window->shows(u"Included Features"_s));
        QVERIFY(!m_window->symbol(u"checkmark.circle.fill"_s));
    }

    void listsTheBuiltInFeaturesWithoutASubscription()
    {
        open();
        choose(u"Subscription"_s);
        auto *heading = m_window->text(u"Included Features"_s);
        QCOMPARE(fontOf(heading), u"Inter 11 700"_s);
        QCOMPARE(colorOf(heading), tertiary);
        auto *line = m_window->all(u"Divider"_s).last();
        QCOMPARE(colorOf(line), border);
        QCOMPARE(placeOf(heading).top() - placeOf(line).bottom(), 16.0);
        double above = placeOf(heading).bottom();
        for (const QString &feature : {u"Local fine-tuning"_s, u"3 models max"_s, u"Community support"_s}) {
            auto *label = m_window->text(feature);
            QCOMPARE(fontOf(label), u"Inter 12 400"_s);
            QCOMPARE(colorOf(label), secondary);
            auto *row = label->parentItem();
            QCOMPARE(placeOf(row).top() - above, 12.0);
            above = placeOf(row).bottom();
            auto *mark = m_window->symbol(u"checkmark.circle.fill"_s, row);
            QCOMPARE(mark->property("size").toInt(), 14);
            QCOMPARE(colorOf(mark), green);
            QCOMPARE(placeOf(label).left() - placeOf(mark).right(), 10.0);
        }
        auto *upgrade = m_window->button(u"Upgrade"_s);
        QVERIFY(QString::fromLatin1(upgrade->metaObject()->className()).startsWith(u"PrimaryButton"_s));
        QVERIFY(!m_window->shows(u"Active"_s));
    }

    void keepsItsShapeWithAnyFeatureAndPlan()
    {
        open();
        choose(u"Subscription"_s);
        const QString longText(10'000, u'x');
        model()->setSubscription(SubscriptionInfo{true, longText, {}, {u"<i>a</i> & b"_s, longText.left(500)}});
        redraw();
        auto *card = m_window->all(u"SettingsCard"_s).first();
        QVERIFY(m_window->shows(u"<i>a</i> & b"_s));
        auto *badge = m_window->all(u"Badge"_s).first();
        QVERIFY(placeOf(badge).right() < placeOf(m_window->text(u"Active"_s)).left());
        QVERIFY(placeOf(m_window->text(u"Active"_s)).right() < placeOf(m_window->button(u"Upgrade"_s)).left());
        QVERIFY(placeOf(m_window->text(longText.left(500))).right() <= placeOf(card).right() - 24);
    }

    void keepsTheLookOfTheUsage()
    {
        open();
        choose(u"Subscription"_s);
        auto *card = m_window->all(u"SettingsCard"_s).last();
        expectCard(card, 12);
        auto *heading = m_window->text(u"Usage This Month"_s, card);
        QCOMPARE(fontOf(heading), u"Inter 14 500"_s);
        QCOMPARE(colorOf(heading), secondary);
        QCOMPARE(placeIn(heading, card).topLeft(), QPointF(20, 20));
        const auto items = m_window->all(u"UsageStatItem"_s);
        QCOMPARE(items.size(), 3);
        expectUsage(items[0], u"MODELS"_s, u"2/3"_s, 2.0 / 3);
        expectUsage(items[1], u"TRAINING JOBS"_s, u"5/10"_s, 0.5);
        expectUsage(items[2], u"API CALLS"_s, u"1247/10000"_s, 0.1247);
        QCOMPARE(placeOf(items[1]).left() - placeOf(items[0]).right(), 24.0);
        QCOMPARE(placeOf(items[2]).left() - placeOf(items[1]).right(), 24.0);
    }

    void turnsTheBarRedAboveFourFifths_data()
    {
        QTest::addColumn<int>("used");
        QTest::addColumn<int>("limit");
        QTest::addColumn<bool>("isRed");
        QTest::newRow("two thirds") << 2 << 3 << false;
        QTest::newRow("four fifths") << 4 << 5 << false;
        QTest::newRow("a little more") << 801 << 1000 << true;
        QTest::newRow("all") << 2 << 2 << true;
        QTest::newRow("more than all") << 5 << 2 << true;
        QTest::newRow("nothing") << 0 << 3 << false;
    }
    void turnsTheBarRedAboveFourFifths()
    {
        QFETCH(int, used);
        QFETCH(int, limit);
        QFETCH(bool, isRed);
        open();
        QQmlComponent component(m_view->engine(), QUrl(u"qrc:/qt/qml/Quillmere/Workspace/UsageStatItem.qml"_s));
        const std::unique_ptr<QObject> made(
            component.createWithInitialProperties({{u"label"_s, u"Models"_s}, {u"used"_s, used}, {u"limit"_s, limit}}));
        const auto *bar = qobject_cast<QQuickItem *>(made.get())->childItems().last();
        QCOMPARE(colorOf(bar, "tint"), isRed ? red : accent);
        QCOMPARE(bar->width(), 100.0);
        QVERIFY(bar->childItems().first()->width() <= 100);
    }

    // Preferences

    void keepsTheLookOfThePreferences()
    {
        open();
        choose(u"Preferences"_s);
        const auto groups = m_window->all(u"SettingsGroup"_s);
        const auto panels = m_window->all(u"SettingsCard"_s);
        QCOMPARE(groups.size(), 3);
        QCOMPARE(panels.size(), 3);
        const QStringList headings{u"Appearance"_s, u"Defaults"_s, u"Privacy"_s};
        for (int i = 0; i < 3; ++i) {
            auto *heading = m_window->text(headings[i], groups[i]);
            QCOMPARE(fontOf(heading), u"Inter 14 500"_s);
            QCOMPARE(colorOf(heading), secondary);
            expectCard(panels[i], 8);
            QCOMPARE(placeOf(panels[i]).top() - placeOf(heading).bottom(), 16.0);
        }

        auto *theme = m_window->text(u"Theme"_s, panels[0]);
        QCOMPARE(fontOf(theme), u"Inter 14 400"_s);
        QCOMPARE(colorOf(theme), white);
        QCOMPARE(placeIn(theme, panels[0]).topLeft(), QPointF(16, 16));
        auto *dark = m_window->text(u"Dark"_s, panels[0]);
        QCOMPARE(colorOf(dark), tertiary);
        QCOMPARE(placeIn(dark, panels[0]).right(), panels[0]->width() - 16);

        const auto rows = m_window->all(u"PreferenceRow"_s);
        QCOMPARE(rows.size(), 3);
        expectPreference(rows[0], u"Default Base Model"_s, u"Llama 3 8B"_s);
        expectPreference(rows[1], u"Default Batch Size"_s, u"4"_s);
        expectPreference(rows[2], u"Default Epochs"_s, u"3"_s);
        QCOMPARE(m_window->all(u"Divider"_s).size(), 1 + 2 + 1);

        const auto switches = m_window->all(u"Switch"_s);
        QCOMPARE(switches.size(), 2);
        QCOMPARE(switches[0]->property("text").toString(), u"Send anonymous usage analytics"_s);
        QCOMPARE(switches[1]->property("text").toString(), u"Training job notifications"_s);
        for (auto *each : switches) {
            QVERIFY(each->property("checked").toBool());
            QCOMPARE(placeIn(each, panels[2]).left(), 16.0);
            QCOMPARE(placeIn(each, panels[2]).right(), panels[2]->width() - 16);
        }
    }

    void togglesEachPreferenceByItself()
    {
        open();
        choose(u"Preferences"_s);
        auto *section = page();
        const auto switches = m_window->all(u"Switch"_s);
        m_window->click(switches[0]);
        QVERIFY(!section->property("enableAnalytics").toBool());
        QVERIFY(section->property("enableNotifications").toBool());
        QVERIFY(!switches[0]->property("checked").toBool());
        switches[1]->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Space);
        QVERIFY(!section->property("enableNotifications").toBool());
        QVERIFY(!switches[1]->property("checked").toBool());
        m_window->press(Qt::Key_Space);
        QVERIFY(section->property("enableNotifications").toBool());
        QVERIFY(switches[1]->property("checked").toBool());
    }

    void forgetsPreferencesWhenTheSectionIsLeft()
    {
        open();
        choose(u"Preferences"_s);
        m_window->click(m_window->all(u"Switch"_s).first());
        choose(u"About"_s);
        choose(u"Preferences"_s);
        QVERIFY(page()->property("enableAnalytics").toBool());
        QVERIFY(m_window->all(u"Switch"_s).first()->property("checked").toBool());
        QCOMPARE(page()->property("defaultModel").toString(), u"Llama 3 8B"_s);
    }

    void writesNoFile()
    {
        open();
        choose(u"Preferences"_s);
        for (auto *each : m_window->all(u"Switch"_s)) {
            m_window->click(each);
        }
        choose(u"Account"_s);
        close();
        settle();
        QStringList files;
        for (QDirIterator home(qEnvironmentVariable("HOME"), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
             home.hasNext();) {
            files.append(home.next());
        }
        QCOMPARE(files, QStringList());
        QVERIFY(m_world->service.requests().isEmpty());
    }

    // About

    void showsWhatTheProgramIs()
    {
        open();
        choose(u"About"_s);
        auto *card = m_window->all(u"SettingsCard"_s).first();
        expectCard(card, 12);
        auto *bolt = m_window->symbol(u"bolt.fill"_s, card);
        QCOMPARE(bolt->property("size").toInt(), 40);
        QCOMPARE(colorOf(bolt), accent);
        QCOMPARE(placeIn(bolt, card).left(), 24.0);
        auto *name = m_window->text(u"Quillmere Studio"_s, card);
        QCOMPARE(fontOf(name), u"Space Grotesk 18 500"_s);
        QCOMPARE(colorOf(name), white);
        QCOMPARE(placeOf(name).left() - placeOf(bolt).right(), 16.0);
        auto *version = m_window->text(u"Version 1.0.0"_s, card);
        QCOMPARE(fontOf(version), u"Inter 12 400"_s);
        QCOMPARE(colorOf(version), tertiary);
        QCOMPARE(placeOf(version).top() - placeOf(name).bottom(), 4.0);
        auto *words = m_window->text(u"Fine-tune LLMs locally with ease. Quillmere Studio provides a simple, intuitive "
                                     u"interface for training custom "
                                     "language models on your own hardware."_s);
        QCOMPARE(fontOf(words), u"Inter 14 400"_s);
        QCOMPARE(colorOf(words), secondary);
        QCOMPARE(placeOf(words).top() - placeOf(bolt->parentItem()).bottom(), 16.0);
        QCOMPARE(words->width(), card->width() - 48);
    }

    void opensEachLinkInTheBrowser()
    {
        m_world->environment.hosts.webSite = u"https://site.example"_s;
        m_world->environment.hosts.supportAddress = u"help@site.example"_s;
        open();
        choose(u"About"_s);
        auto *card = m_window->all(u"SettingsCard"_s).last();
        expectCard(card, 12);
        const auto links = m_window->all(u"AboutLink"_s);
        QCOMPARE(links.size(), 4);
        expectLink(links[0], u"book"_s, u"Documentation"_s);
        expectLink(links[1], u"hand.raised"_s, u"Privacy Policy"_s);
        expectLink(links[2], u"doc.text"_s, u"Terms of Service"_s);
        expectLink(links[3], u"envelope"_s, u"Contact Support"_s);
        for (auto *link : links) {
            m_window->click(link);
        }
        m_window->control(QAccessible::Link, u"Privacy Policy"_s)->forceActiveFocus(Qt::TabFocusReason);
        m_window->press(Qt::Key_Return);
        QCOMPARE(m_world->urlOpener.opened,
            QList<QUrl>({QUrl(u"https://site.example/docs"_s), QUrl(u"https://site.example/privacy"_s),
                QUrl(u"https://site.example/terms"_s), QUrl(u"mailto:help@site.example"_s),
                QUrl(u"https://site.example/privacy"_s)}));
    }

    void doesNothingForALinkThatIsNoUrl()
    {
        m_world->environment.hosts.webSite = u"not a host"_s;
        m_world->environment.hosts.supportAddress = u"no address"_s;
        open();
        choose(u"About"_s);
        CapturedOutput output;
        for (auto *link : m_window->all(u"AboutLink"_s)) {
            m_window->click(link);
        }
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QVERIFY(output.lines().isEmpty());
    }

    // What does nothing

    void doesNothingWhenPressed_data()
    {
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("what");
        QTest::newRow("Edit Profile") << u"Account"_s << u"Edit Profile"_s;
        QTest::newRow("Regenerate") << u"Account"_s << u"Regenerate"_s;
        QTest::newRow("Upgrade") << u"Subscription"_s << u"Upgrade"_s;
        QTest::newRow("Default Base Model") << u"Preferences"_s << u"Default Base Model"_s;
        QTest::newRow("Default Batch Size") << u"Preferences"_s << u"Default Batch Size"_s;
        QTest::newRow("Default Epochs") << u"Preferences"_s << u"Default Epochs"_s;
        QTest::newRow("Theme") << u"Preferences"_s << u"Theme"_s;
    }
    void doesNothingWhenPressed()
    {
        QFETCH(QString, section);
        QFETCH(QString, what);
        const QString token = m_world->isSignedIn();
        open();
        QVERIFY(eventually([&] { return !model()->isLoading(); }));
        choose(section);
        m_world->service.forgetRequests();
        m_world->secrets.reads.clear();
        const QStringList before = texts();
        CapturedOutput output;

        auto *button = m_window->button(what);
        auto *pressed = button ? button : m_window->text(what)->parentItem();
        m_window->click(pressed);
        if (button) {
            QVERIFY(button->isEnabled());
            m_window->press(Qt::Key_Return);
        } else {
            QVERIFY(!pressed->activeFocusOnTab());
        }
        settle();
        QCOMPARE(texts(), before);
        QVERIFY(m_world->service.requests().isEmpty());
        QVERIFY(m_world->secrets.reads.isEmpty());
        QCOMPARE(m_world->secrets.peek(u"quillmere_auth_token"_s), token);
        QVERIFY(m_world->urlOpener.opened.isEmpty());
        QVERIFY(output.lines().isEmpty());
    }

    void tellsAssistiveProgramsWhatIsThere()
    {
        open();
        const auto rows = m_window->all(u"SettingsRow"_s);
        auto *account = accessible(rows[0]);
        QCOMPARE(account->role(), QAccessible::Button);
        QCOMPARE(account->text(QAccessible::Name), u"Account"_s);
        QVERIFY(account->state().selected);
        QVERIFY(!accessible(rows[1])->state().selected);
        account = accessible(rows[3]);
        account->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        settle();
        auto *link = accessible(m_window->control(QAccessible::Link, u"Documentation"_s));
        QVERIFY(link);
        link->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(m_world->urlOpener.opened.size(), 1);
        choose(u"Preferences"_s);
        auto *toggle = accessible(m_window->all(u"Switch"_s).first());
        QCOMPARE(toggle->role(), QAccessible::CheckBox);
        QCOMPARE(toggle->text(QAccessible::Name), u"Send anonymous usage analytics"_s);
        QVERIFY(toggle->state().checked);
        choose(u"Subscription"_s);
        auto *bar = accessible(m_window->all(u"ProgressBar"_s).first());
        QCOMPARE(bar->role(), QAccessible::ProgressBar);
        QCOMPARE(bar->text(QAccessible::Name), u"Models"_s);
    }

private:
    void open(QSize size = {980, 760}) { ViewTest::open(u"Workspace/SettingsView.qml"_s, size); }
    void choose(const QString &section)
    {
        m_window->click(m_window->button(section));
        redraw();
    }
    SettingsViewModel *model() const { return m_view->rootObject()->findChild<SettingsViewModel *>(); }

    // The section on display.
    QQuickItem *page() const
    {
        for (const QString &each : {u"Account"_s, u"Subscription"_s, u"Preferences"_s, u"About"_s}) {
            if (auto *section = m_window->all(each + u"Section"_s).value(0)) {
                return section;
            }
        }
        return nullptr;
    }

    QStringList texts() const
    {
        QStringList texts;
        for (auto *label : m_window->all(u"Label"_s)) {
            texts.append(label->property("text").toString());
        }
        return texts;
    }

    static QString ground(const QQuickItem *button)
    {
        return colorOf(button->property("background").value<QQuickItem *>());
    }

    static void expectCard(const QQuickItem *card, double radius)
    {
        QCOMPARE(colorOf(card), surface);
        QCOMPARE(radiusOf(card), radius);
        QCOMPARE(strokeOf(card), border + u" 1"_s);
        QCOMPARE(placeOf(card).left(), double(pageLeft));
        QCOMPARE(placeOf(card).right(), 980.0 - 32);
    }

    void expectRow(QQuickItem *row, const QString &icon, const QString &label, const QString &color) const
    {
        QCOMPARE(placeOf(row).left(), 20.0);
        QCOMPARE(row->width(), 180.0);
        auto *symbol = m_window->symbol(icon, row);
        QVERIFY(symbol);
        QCOMPARE(symbol->property("size").toInt(), 16);
        QCOMPARE(colorOf(symbol), color);
        QCOMPARE(symbol->width(), 24.0);
        QCOMPARE(placeIn(symbol, row).left(), 16.0);
        auto *word = m_window->text(label, row);
        QVERIFY(word);
        QCOMPARE(fontOf(word), u"Inter 14 500"_s);
        QCOMPARE(colorOf(word), color);
        QCOMPARE(placeIn(word, row).left(), 16.0 + 24 + 12);
        QCOMPARE(row->height(), 24 + std::max(word->height(), symbol->height()));
        QCOMPARE(row->property("radius").toDouble(), 8.0);
    }

    void expectUsage(QQuickItem *item, const QString &label, const QString &figures, double ratio) const
    {
        auto *word = m_window->text(label, item);
        QVERIFY(word);
        QCOMPARE(fontOf(word), u"Inter 10 700"_s);
        QCOMPARE(colorOf(word), tertiary);
        auto *figure = m_window->text(figures, item);
        QVERIFY(figure);
        QCOMPARE(fontOf(figure), u"Geist Mono 14 400"_s);
        QCOMPARE(colorOf(figure), white);
        QCOMPARE(placeOf(figure).top() - placeOf(word).bottom(), 8.0);
        auto *bar = item->childItems().last();
        QCOMPARE(placeOf(bar).top() - placeOf(figure).bottom(), 8.0);
        QCOMPARE(bar->width(), 100.0);
        QCOMPARE(colorOf(bar, "tint"), accent);
        QCOMPARE(bar->childItems().first()->width(), 100 * ratio);
    }

    void expectPreference(QQuickItem *row, const QString &title, const QString &value) const
    {
        auto *name = m_window->text(title, row);
        QVERIFY(name);
        QCOMPARE(fontOf(name), u"Inter 14 400"_s);
        QCOMPARE(colorOf(name), white);
        QCOMPARE(placeIn(name, row).topLeft(), QPointF(16, 16));
        QCOMPARE(row->height(), name->height() + 32);
        auto *shown = m_window->text(value, row);
        QVERIFY(shown);
        QCOMPARE(fontOf(shown), u"Inter 14 400"_s);
        QCOMPARE(colorOf(shown), tertiary);
        auto *chevron = m_window->symbol(u"chevron.right"_s, row);
        QCOMPARE(chevron->property("size").toInt(), 12);
        QCOMPARE(colorOf(chevron), tertiary);
        QCOMPARE(placeIn(chevron, row).right(), row->width() - 16);
        QVERIFY(placeOf(shown).right() < placeOf(chevron).left());
    }

    void expectLink(QQuickItem *link, const QString &icon, const QString &title) const
    {
        auto *symbol = m_window->symbol(icon, link);
        QVERIFY(symbol);
        QCOMPARE(symbol->property("size").toInt(), 16);
        QCOMPARE(colorOf(symbol), accent);
        QCOMPARE(symbol->width(), 24.0);
        QCOMPARE(placeIn(symbol, link).left(), 16.0);
        auto *word = m_window->text(title, link);
        QVERIFY(word);
        QCOMPARE(fontOf(word), u"Inter 14 400"_s);
        QCOMPARE(colorOf(word), white);
        QCOMPARE(placeIn(word, link).left(), 16.0 + 24 + 12);
        auto *arrow = m_window->symbol(u"arrow.up.right"_s, link);
        QCOMPARE(arrow->property("size").toInt(), 12);
        QCOMPARE(colorOf(arrow), tertiary);
        QVERIFY(m_window->control(QAccessible::Link, title, link));
        QCOMPARE(placeIn(arrow, link).right(), link->width() - 16);
    }
};

QTEST_MAIN(tst_SettingsView)
#include "tst_SettingsView.moc"
