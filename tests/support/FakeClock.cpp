#include "support/FakeClock.h"

#include <algorithm>

namespace quillmere::testing {

QDateTime FakeClock::now() const
{
    return QDateTime(QDate(2026, 11, 20), QTime(12, 0), Qt::UTC).addMSecs(m_uptime.count());
}

Clock::Timer FakeClock::schedule(std::chrono::milliseconds delay, std::function<void()> action)
{
    m_actions.emplace(++m_last, Action{m_uptime + std::max(delay, std::chrono::milliseconds(0)), std::move(action)});
    return m_last;
}

void FakeClock::cancel(Timer timer)
{
    m_actions.erase(timer);
}

qsizetype FakeClock::dueIn(std::chrono::milliseconds delay) const
{
    return std::count_if(
        m_actions.begin(), m_actions.end(), [&](const auto &action) { return action.second.due == m_uptime + delay; });
}

void FakeClock::advance(std::chrono::milliseconds by)
{
    const std::chrono::milliseconds end = m_uptime + by;
    for (;;) {
        const auto next = std::min_element(m_actions.begin(), m_actions.end(),
            [](const auto &a, const auto &b) { return a.second.due < b.second.due; });
        if (next == m_actions.end() || next->second.due > end) {
            break;
        }
        m_uptime = std::max(m_uptime, next->second.due);
        const auto run = std::move(next->second.run);
        m_actions.erase(next);
        run();
    }
    m_uptime = end;
}

} // namespace quillmere::testing
