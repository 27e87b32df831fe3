#include "app/Quillmere_StudioApp.h"
#include "app/RootViewState.h"
#include "app/SidebarItem.h"
#include "identity/AuthManager.h"
#include "platform/Alerts.h"
#include "platform/BrowserSession.h"
#include "platform/Pasteboard.h"
#include "support/TestEnvironment.h"
#include "support/Window.h"

#include <QAbstractItemModel>
#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QMetaProperty>
#include <QQuickWindow>
#include <QSet>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmere::testing;

namespace quillmere {

namespace {

// Texts that stand nowhere else, and a part of each that a cut or masked form would still hold.
const auto accessToken = u"canary_at_3f9c61d07be2a85417fd"_s;
const auto refreshToken = u"canary_rt_b86e02c9415d7fa3e06b"_s;
const QStringList canaries{u"61d07be2"_s, u"02c9415d"_s};

// All that QML can read from some objects on: properties, those of their values, children, parts on the screen, models' rows.
class Reachable {
public:
    explicit Reachable(const QList<QObject *> &roots)
    {
        for (QObject *root : roots) {
            take(root, {});
        }
    }

    qsizetype objects() const { return m_seen.size(); }
    // The places that hold one of the canaries.
    QStringList findings() const { return m_findings; }

private:
    void take(QObject *object, const QString &path)
    {
        if (!object || m_seen.contains(object)) {
            return;
        }
        m_seen.insert(object);
        const QMetaObject *type = object->metaObject();
        const QString here = path + u'/' + QString::fromLatin1(type->className());
        for (int i = 0; i < type->propertyCount(); ++i) {
            const QMetaProperty property = type->property(i);
            look(property.read(object), here + u'.' + QString::fromLatin1(property.name()));
        }
        for (const QByteArray &name : object->dynamicPropertyNames()) {
            look(object->property(name), here + u'.' + QString::fromLatin1(name));
        }
        if (const auto *model = qobject_cast<QAbstractItemModel *>(object)) {
            const QList<int> roles = model->roleNames().keys();
            for (int row = 0; row < model->rowCount(); ++row) {
                for (const int role : roles) {
                    look(model->data(model->index(row, 0), role), here + u"[%1]"_s.arg(row));
                }
            }
        }
        for (QObject *child : object->children()) {
            take(child, here);
        }
        if (auto *item = qobject_cast<QQuickItem *>(object)) {
            for (QQuickItem *child : item->childItems()) {
                take(child, here);
            }
        }
    }

    void look(const QVariant &value, const QString &path)
    {
        if (auto *object = value.value<QObject *>()) {
            take(object, path);
            return;
        }
        if (value.canConvert<QVariantList>() && value.typeId() != QMetaType::QString
            && value.typeId() != QMetaType::QByteArray) {
            for (const QVariant &each : value.toList()) {
                look(each, path);
            }
            return;
        }
        if (const QMetaObject *gadget = value.metaType().metaObject();
            gadget && value.metaType().flags().testFlag(QMetaType::IsGadget)) {
            for (int i = 0; i < gadget->propertyCount(); ++i) {
                look(gadget->property(i).readOnGadget(value.constData()), path);
            }
        }
        const QString text =
            value.typeId() == QMetaType::QByteArray ? QString::fromLatin1(value.toByteArray()) : value.toString();
        for (const QString &canary : canaries) {
            if (text.contains(canary)) {
                m_findings.append(path);
            }
        }
    }

    QSet<const QObject *> m_seen;
    QStringList m_findings;
};

// What assistive programs are told, from an object on.
void readAloud(QAccessibleInterface *object, QStringList &said)
{
    for (const auto kind : {QAccessible::Name, QAccessible::Description, QAccessible::Value, QAccessible::Help,
             QAccessible::Accelerator}) {
        said.append(object->text(kind));
    }
    if (auto *text = object->textInterface()) {
        said.append(text->text(0, text->characterCount()));
    }
    if (auto *value = object->valueInterface()) {
        said.append(value->currentValue().toString());
    }
    for (int i = 0; i < object->childCount(); ++i) {
        if (auto *child = object->child(i)) {
            readAloud(child, said);
        }
    }
}

} // namespace

// Where a token is not: while somebody signs in, on every screen, and after the end of the session.
class tst_SecretsOnScreens : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QAccessible::setActive(true);
        m_world = std::make_unique<TestEnvironment>();
        m_studio = std::make_unique<Quillmere_StudioApp>();
        QVERIFY(m_studio->open());
        m_window = std::make_unique<Window>(*m_studio->window());
        QVERIFY(QTest::qWaitForWindowExposed(m_studio->window()));
        m_world->clock.advance(RootViewState::splashTime);
        QVERIFY(eventually([this] { return m_window->field(u"Email"_s) != nullptr; }));
    }
    void cleanup()
    {
        m_window.reset();
        m_studio.reset();
        m_world.reset();
    }

    // The search itself is worth nothing if it does not find what is there.
    void findsWhatIsThere()
    {
        m_window->type(accessToken);
        QVERIFY(!propertiesWithTokens().isEmpty());
        QVERIFY(isReadAloud());
        m_window->press(Qt::Key_A, Qt::ControlModifier);
        m_window->press(Qt::Key_Delete);
        QCOMPARE(propertiesWithTokens(), QStringList());
        QVERIFY(!isReadAloud());
        Pasteboard::setString(accessToken);
        QVERIFY(isInTheClipboard());
        Pasteboard::setString(u""_s);
    }

    // The field for the address that the browser ended at has to hold it until it is sent, as dots.
    void aPastedAddressIsNotReadAloudAndGoesWhenItIsSent()
    {
        signsInAsFarAsTheBrowser();
        const QQuickItem *field = addressField();
        m_window->click(field);
        m_window->type(
            u"com.quillmere.studio://callback#access_token="_s + accessToken + u"&refresh_token="_s + refreshToken);
        QVERIFY(field->property("text").toString().endsWith(refreshToken));
        QVERIFY(!isReadAloud());
        m_window->press(Qt::Key_Return);
        QVERIFY(isSignedIn());
        QVERIFY(isNowhere());
    }

    void aPastedAddressGoesWithThePanel()
    {
        signsInAsFarAsTheBrowser();
        m_window->click(addressField());
        m_window->type(u"com.quillmere.studio://callback#access_token="_s + accessToken);
        BrowserSession::shared().cancel();
        QVERIFY(eventually([this] { return isNowhere(); }));

        // Not even the field's memory of what was typed has it.
        BrowserSession::shared().authenticate(QUrl(u"https://login.example/"_s), u"com.quillmere.studio"_s);
        settle();
        m_window->click(addressField());
        m_window->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(addressField()->property("text").toString(), u""_s);
        BrowserSession::shared().cancel();
    }

    void noScreenHoldsAToken()
    {
        signsIn();
        for (int item = 0; item < SidebarItem::count; ++item) {
            QQuickItem *content = m_window->all(u"ContentView"_s).value(0);
            content->setProperty("selection", item);
            QVERIFY(eventually([&] { return !m_window->texts().isEmpty(); }));
            settle();
            m_world->clock.advance(5s);
            settle();
            QVERIFY2(isNowhere(), qPrintable(SidebarItem::title(item)));
        }
    }

    void theSettingsShowTheTokensEnds()
    {
        signsIn();
        m_window->all(u"ContentView"_s).value(0)->setProperty("selection", int(SidebarItem::Settings));
        QVERIFY(eventually([this] { return m_window->shows(u"cana••••••••17fd"_s); }));
        QVERIFY(isNowhere());
    }

    void nothingIsLeftAfterTheSession()
    {
        signsIn();
        AuthManager::shared().logout();
        QVERIFY(eventually([this] { return m_window->field(u"Email"_s) != nullptr; }));
        settle();
        QVERIFY(isNowhere());
        for (const QString &key : {AuthManager::shared().tokenKey, AuthManager::shared().refreshTokenKey}) {
            QVERIFY(!m_world->secrets.peek(key));
        }
    }

private:
    void signsInAsFarAsTheBrowser()
    {
        m_world->service.hasAccount(u"ada@example.org"_s, u"JBSWY3DPEHPK3PXP"_s);
        // The service knows no canary; what it answers to one is not what this is about.
        m_world->service.on("GET /v1").answers(503, R"({"detail": "Later"})");
        m_window->type(u"ada@example.org"_s);
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([this] { return m_window->shows(u"Enter Code"_s) && !m_window->shows(u"Continue"_s); }));
        m_window->type(StandIn::totp(u"JBSWY3DPEHPK3PXP"_s, m_world->clock.now()));
        m_window->press(Qt::Key_Return);
        QVERIFY(eventually([] { return BrowserSession::shared().isWaiting(); }));
    }

    QQuickItem *addressField() const
    {
        const auto *box = m_window->control(QAccessible::Grouping, u"Address that the browser ended at"_s);
        return box->property("field").value<QQuickItem *>();
    }

    bool isSignedIn()
    {
        const auto &auth = AuthManager::shared();
        return eventually([&] {
            return !m_window->all(u"ContentView"_s).isEmpty() && !m_window->field(u"Email"_s)
                && m_world->secrets.peek(auth.tokenKey) == accessToken
                && m_world->secrets.peek(auth.refreshTokenKey) == refreshToken;
        });
    }

    void signsIn()
    {
        signsInAsFarAsTheBrowser();
        m_studio->receive(
            u"com.quillmere.studio://callback#access_token="_s + accessToken + u"&refresh_token="_s + refreshToken);
        QVERIFY(isSignedIn());
        settle();
    }

    QStringList propertiesWithTokens() const
    {
        const Reachable reachable(
            {m_studio.get(), m_studio->window(), &AuthManager::shared(), &BrowserSession::shared(), &Alerts::shared()});
        // Far fewer would mean that the search has lost its way.
        return reachable.objects() > 100 ? reachable.findings() : QStringList(u"too few objects"_s);
    }

    bool isReadAloud() const
    {
        QStringList said;
        readAloud(QAccessible::queryAccessibleInterface(m_studio->window()), said);
        return std::any_of(canaries.cbegin(), canaries.cend(),
            [&](const QString &canary) { return said.join(u'\n').contains(canary); });
    }

    static bool isInTheClipboard()
    {
        const QString held = QGuiApplication::clipboard()->text();
        return std::any_of(
            canaries.cbegin(), canaries.cend(), [&](const QString &canary) { return held.contains(canary); });
    }

    bool isNowhere() const
    {
        const QStringList properties = propertiesWithTokens();
        if (!properties.isEmpty()) {
            qWarning("A token in %s", qPrintable(properties.join(u", "_s)));
        }
        return properties.isEmpty() && !isReadAloud() && !isInTheClipboard();
    }

    std::unique_ptr<TestEnvironment> m_world;
    std::unique_ptr<Quillmere_StudioApp> m_studio;
    std::unique_ptr<Window> m_window;
};

} // namespace quillmere

QTEST_MAIN(quillmere::tst_SecretsOnScreens)
#include "tst_SecretsOnScreens.moc"
