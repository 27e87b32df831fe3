#include "platform/RepeatingTimer.h"

#include "platform/Environment.h"

namespace quillmere {

RepeatingTimer::RepeatingTimer(std::chrono::milliseconds interval, std::function<void()> action)
    : m_clock(*Environment::current().clock), m_interval(interval), m_action(std::move(action)),
      m_due(m_clock.uptime() + interval)
{
    Q_ASSERT(interval.count() > 0);
    schedule();
}

RepeatingTimer::~RepeatingTimer()
{
    m_clock.cancel(m_next);
}

void RepeatingTimer::schedule()
{
    m_next = m_clock.schedule(m_due - m_clock.uptime(), [this] { fire(); });
}

void RepeatingTimer::fire()
{
    m_due += m_interval;
    const auto late = m_clock.uptime() - m_due;
    if (late.count() >= 0) {
        m_due += (late / m_interval + 1) * m_interval;
    }
    schedule();
    // A copy, since the action may end this timer.
    const auto action = m_action;
    action();
}

} // namespace quillmere
