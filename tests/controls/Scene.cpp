#include "controls/Scene.h"

#include "app/theme/Theme.h"

#include <QQmlComponent>
#include <QRegularExpression>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

FakeClock &clockOf(Environment &environment)
{
    auto clock = std::make_unique<FakeClock>();
    auto &it = *clock;
    environment.clock = std::move(clock);
    return it;
}

} // namespace

Scene::Scene(const QString &qml, bool animations) : clock(clockOf(environment))
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    QAccessible::setActive(true);
    environment.animations = animations;
    Theme::registerFaces();
    view.engine()->addImportPath(u"qrc:/qt/qml"_s);
    view.setColor(Theme::background());
    view.resize(800, 600);

    auto *component = new QQmlComponent(view.engine(), &view);
    const QString text =
        u"import QtQuick\nimport Quillmere.Controls\nimport Quillmere.Theme\nItem {\nid: root\nwidth: 800\nheight: 600\n"_s
        + qml + u"\n}"_s;
    component->setData(text.toUtf8(), QUrl(u"qrc:/Scene.qml"_s));
    auto *root = qobject_cast<QQuickItem *>(component->create());
    if (!root) {
        qFatal("%s", qPrintable(component->errorString()));
    }
    view.setContent({}, component, root);
    view.show();
    view.requestActivate();
    if (!QTest::qWaitForWindowActive(&view)) {
        qFatal("The window did not become active.");
    }
    // A move to where the pointer is already would be none.
    QTest::mouseMove(&view, QPoint(798, 598));
    QTest::mouseMove(&view, QPoint(799, 599));
}

QObject *Scene::object(const QString &name) const
{
    auto *found = view.rootObject()->findChild<QObject *>(name);
    if (!found) {
        qFatal("There is no %s.", qPrintable(name));
    }
    return found;
}

QQuickItem *Scene::item(const QString &name) const
{
    auto *found = qobject_cast<QQuickItem *>(object(name));
    if (!found) {
        qFatal("%s is no item.", qPrintable(name));
    }
    return found;
}

QPoint Scene::middle(const QQuickItem *item) const
{
    return item->mapRectToScene(item->boundingRect()).center().toPoint();
}

void Scene::click(const QString &name)
{
    QTest::mouseClick(&view, Qt::LeftButton, {}, middle(item(name)));
}

void Scene::hover(const QString &name)
{
    QTest::mouseMove(&view, middle(item(name)));
}

void Scene::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&view, key, modifiers);
}

void Scene::type(const QString &text)
{
    for (const QChar character : text) {
        QTest::keyClick(&view, character.toLatin1());
    }
}

void Scene::turnWheel(const QString &name, QPoint angle, QPoint pixels)
{
    const QPointF position = middle(item(name));
    QWheelEvent event(
        position, view.mapToGlobal(position), pixels, angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view, &event);
}

QAccessibleInterface *Scene::accessible(const QString &name) const
{
    auto *interface = QAccessible::queryAccessibleInterface(object(name));
    if (!interface) {
        qFatal("%s is not there for assistive programs.", qPrintable(name));
    }
    return interface;
}

bool Scene::doAccessibly(const QString &action, const QString &name) const
{
    auto *actions = accessible(name)->actionInterface();
    if (!actions || !actions->actionNames().contains(action)) {
        return false;
    }
    actions->doAction(action);
    return true;
}

} // namespace quillmere::testing
