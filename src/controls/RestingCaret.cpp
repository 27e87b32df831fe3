#include "controls/RestingCaret.h"

#include "platform/Environment.h"

#include <QEvent>
#include <QGuiApplication>
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

bool RestingCaret::eventFilter(QObject *, QEvent *event)
{
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
