#include "controls/AutoRepeat.h"

#include "platform/Environment.h"

namespace quillmere {

using namespace std::chrono_literals;

AutoRepeat::~AutoRepeat()
{
    setRunning(false);
}

void AutoRepeat::setRunning(bool running)
{
    if (running == isRunning()) {
        return;
    }
    if (running) {
        triggerAfter(400ms);
    } else {
        Environment::current().clock->cancel(*m_timer);
        m_timer.reset();
    }
    emit runningChanged();
}

void AutoRepeat::triggerAfter(std::chrono::milliseconds delay)
{
    m_timer = Environment::current().clock->schedule(delay, [this] {
        triggerAfter(100ms);
        emit triggered();
    });
}

} // namespace quillmere
