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
    m_actions.emplace(Timer(id), std::move(action));
    return Timer(id);
}

void SystemClock::cancel(Timer timer)
{
    if (m_actions.erase(timer) > 0) {
        killTimer(int(timer));
    }
}

void SystemClock::timerEvent(QTimerEvent *event)
{
    killTimer(event->timerId());
    // The action may schedule and cancel others, so it leaves the table before it runs.
    auto node = m_actions.extract(Timer(event->timerId()));
    if (!node.empty()) {
        node.mapped()();
    }
}

} // namespace quillmere
