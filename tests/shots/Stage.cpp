#include "shots/Stage.h"

#include "app/RootViewState.h"
#include "app/theme/Theme.h"
#include "identity/AuthManager.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QQuickView>
#include <QTest>
#include <QWheelEvent>

#include <array>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

Stage::Stage(QSize size) : m_size(size)
{
    QAccessible::setActive(true);
    QCoreApplication::setApplicationVersion(u"1.0.0"_s); // which is the newest that the service has
    hasUser(R"({"id": "u-1", "email": "ada@example.org", "name": "Ada Lovelace"})");
}

Stage::~Stage()
{
    m_window.reset();
    m_page.reset();
    m_studio.reset();
    const QStringList unexpected = world.service.unexpectedRequests();
    if (!unexpected.isEmpty()) {
        qWarning("Unexpected requests: %s", qPrintable(unexpected.join(u"; "_s)));
    }
}

void Stage::hasUser(const QByteArray &json)
{
    user = json;
    world.service.hasUser(json);
}

void Stage::opens()
{
    m_studio = std::make_unique<Quillmere_StudioApp>();
    if (!m_studio->open()) {
        qFatal("The program does not open.");
    }
    shows(m_studio->window());
    see(u"Quillmere Studio"_s);
}

void Stage::opensSignedOut()
{
    opens();
    world.clock.advance(RootViewState::splashTime);
    see(u"Access your Quillmere account"_s);
}

void Stage::opensSignedIn(SidebarItem::Case destination)
{
    AuthManager &auth = AuthManager::shared();
    world.secrets.save(world.service.signsIn(u"ada@example.org"_s), auth.tokenKey);
    opens();
    world.clock.advance(RootViewState::splashTime);
    see(u"Pro Workspace"_s);
    seeGone(u"Guest"_s);
    if (destination != SidebarItem::Dashboard) {
        goesTo(destination);
    }
}

void Stage::goesTo(SidebarItem::Case destination)
{
    nth(u"ContentView"_s)->setProperty("selection", destination);
    settle();
}

void Stage::opensPage(const QUrl &page, const QVariantMap &properties)
{
    Theme::registerFaces();
    m_page = std::make_unique<QQuickView>();
    m_page->engine()->addImportPath(u"qrc:/qt/qml"_s);
    m_page->setColor(Theme::background());
    m_page->setInitialProperties(properties);
    m_page->setResizeMode(QQuickView::SizeRootObjectToView);
    m_page->setSource(page);
    if (!m_page->rootObject()) {
        qFatal("%s does not load.", qPrintable(page.toString()));
    }
    m_page->show();
    shows(m_page.get());
}

void Stage::shows(QQuickWindow *window)
{
    m_quickWindow = window;
    window->resize(m_size);
    window->requestActivate();
    if (!QTest::qWaitForWindowActive(window)) {
        qFatal("The window does not become active.");
    }
    m_window = std::make_unique<Window>(*window);
    // A move to where the pointer is already would be none.
    QTest::mouseMove(window, QPoint(m_size.width() - 2, m_size.height() - 2));
    m_pointer = QPoint(m_size.width() - 1, m_size.height() - 1);
    QTest::mouseMove(window, m_pointer);
}

void Stage::waitFor(const std::function<bool()> &condition, const QString &what)
{
    if (!eventually(condition)) {
        qFatal("%s: did not come about.", qPrintable(what));
    }
    settle();
}

void Stage::see(const QString &text)
{
    waitFor([&] { return m_window->shows(text); }, text);
}

void Stage::seeGone(const QString &text)
{
    waitFor([&] { return !m_window->shows(text); }, text + u" gone"_s);
}

QQuickItem *Stage::item(const QString &name)
{
    constexpr std::array roles{QAccessible::Button, QAccessible::ButtonMenu, QAccessible::RadioButton,
        QAccessible::PageTab, QAccessible::MenuItem, QAccessible::ListItem, QAccessible::Link, QAccessible::CheckBox,
        QAccessible::EditableText, QAccessible::Slider, QAccessible::SpinBox};
    QQuickItem *found = nullptr;
    waitFor(
        [&] {
            for (const auto role : roles) {
                found = found ? found : m_window->control(role, name);
            }
            found = found ? found : m_window->text(name);
            return found != nullptr;
        },
        name);
    return found;
}

QQuickItem *Stage::nth(const QString &type, int index)
{
    waitFor([&] { return m_window->all(type).size() > index; }, type);
    return m_window->all(type).at(index);
}

void Stage::click(const QQuickItem *item)
{
    m_pointer = placeOf(item).center().toPoint();
    m_window->click(item);
    settle();
}

void Stage::hover(const QQuickItem *item)
{
    m_pointer = placeOf(item).center().toPoint();
    m_window->hover(item);
    settle();
}

void Stage::type(const QString &text)
{
    m_window->type(text);
    settle();
}

void Stage::type(const QString &field, const QString &text)
{
    click(m_window->field(field));
    type(text);
}

void Stage::press(Qt::Key key, Qt::KeyboardModifiers modifiers, int times)
{
    for (int i = 0; i < times; ++i) {
        m_window->press(key, modifiers);
        settle();
    }
}

void Stage::wheel(const QQuickItem *over, int notchesDown)
{
    const QPointF place = placeOf(over).center();
    QWheelEvent event(place, m_quickWindow->mapToGlobal(place), {}, QPoint(0, -120 * notchesDown), Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_quickWindow, &event);
    settle();
}

QImage Stage::picture()
{
    QImage before;
    for (int i = 0; i < 100; ++i) {
        // What came to lie under the pointer learns of it.
        QTest::mouseMove(m_quickWindow, m_pointer - QPoint(1, 0));
        QTest::mouseMove(m_quickWindow, m_pointer);
        settle();
        QImage now = m_quickWindow->grabWindow();
        if (i > 0 && now == before) {
            return now.convertToFormat(QImage::Format_RGB888);
        }
        before = now;
    }
    qFatal("The window does not come to rest.");
}

} // namespace quillmere::testing
