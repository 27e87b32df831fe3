#include "controls/Keyboard.h"

#include "platform/Environment.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickWindow>

namespace quillmere {

namespace {

bool isModifier(int key)
{
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_Super_L || key == Qt::Key_Super_R
        || key == Qt::Key_AltGr;
}

} // namespace

Keyboard &Keyboard::shared()
{
    return Environment::current().shared<Keyboard>();
}

Keyboard *Keyboard::create(QQmlEngine *, QJSEngine *)
{
    QQmlEngine::setObjectOwnership(&shared(), QQmlEngine::CppOwnership);
    return &shared();
}

Keyboard::Keyboard()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool Keyboard::leave(QQuickItem *item)
{
    QQuickItem *focused = item->window() ? item->window()->activeFocusItem() : nullptr;
    if (!focused || (focused != item && !item->isAncestorOf(focused))) {
        return false;
    }
    focused->setFocus(false);
    return true;
}

bool Keyboard::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (!isModifier(static_cast<QKeyEvent *>(event)->key())) {
            setInUse(true);
        }
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        setInUse(false);
        break;
    default:
        break;
    }
    return false;
}

void Keyboard::setInUse(bool inUse)
{
    if (m_inUse != inUse) {
        m_inUse = inUse;
        emit inUseChanged();
    }
}

} // namespace quillmere
