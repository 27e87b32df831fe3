#include "platform/SystemClock.h"

#include <QTimerEvent>

#include <algorithm>

namespace quillmere {

SystemClock::SystemClock()
{
    m_sinceStart.start();
}

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTimeUtc();
}

std::chrono::milliseconds SystemClock::uptime() const
{
    return std::chrono::milliseconds(m_sinceStart.elapsed());
}

Clock::Timer SystemClock::schedule(std::chrono::milliseconds delay, std::function<void()> action)
{
    const int id = startTimer(std::max(delay, std::chrono::milliseconds(0)), Qt::PreciseTimer);
    const Timer timer = ++m_last;
    m_actions.emplace(id, Action{timer, std::move(action)});
    return timer;
}

void SystemClock::cancel(Timer timer)
{
    const auto found = std::find_if(
        m_actions.begin(), m_actions.end(), [timer](const auto &entry) { return entry.second.timer == timer; });
    if (found != m_actions.end()) {
        killTimer(found->first);
        m_actions.erase(found);
    }
}

void SystemClock::timerEvent(QTimerEvent *event)
{
    killTimer(event->timerId());
    // The action may schedule and cancel others, so it leaves the table before it runs.
    auto node = m_actions.extract(event->timerId());
    if (!node.empty()) {
        node.mapped().run();
    }
}

} // namespace quillmere
