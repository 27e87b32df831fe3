#include "controls/RestingCaret.h"

#include "platform/Environment.h"

#include <QEvent>
#include <QGuiApplication>
#include <QQuickItem>
#include <QStyleHints>

namespace quillmere {

RestingCaret::RestingCaret() : m_flashTime(QGuiApplication::styleHints()->cursorFlashTime())
{
    qGuiApp->installEventFilter(this);
}

RestingCaret::~RestingCaret()
{
    Environment::current().clock->cancel(m_rest);
    QGuiApplication::styleHints()->setCursorFlashTime(m_flashTime);
}

bool RestingCaret::eventFilter(QObject *watched, QEvent *event)
{
    const auto *item = qobject_cast<QQuickItem *>(watched);
    const bool isField = item && item->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
    if (!isField) {
        return false;
    }
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::InputMethod:
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        blink();
        break;
    default:
        break;
    }
    return false;
}

void RestingCaret::blink()
{
    auto &clock = *Environment::current().clock;
    clock.cancel(m_rest);
    QGuiApplication::styleHints()->setCursorFlashTime(m_flashTime);
    m_rest = clock.schedule(blinksFor, [] { QGuiApplication::styleHints()->setCursorFlashTime(0); });
}

} // namespace quillmere
