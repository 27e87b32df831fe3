#pragma once

#include "platform/Clock.h"

namespace quillmere {

// Runs an action again and again on the environment's clock, first when one interval has passed, for as long as it lives. It keeps
// to the beat that it began with: a late run moves no later one, and of the beats that passed while the event loop was busy one
// is made up for, the others are not. An alert does not hold it. It may be ended by its own action. It must not outlive the
// environment it was made in.
class RepeatingTimer {
public:
    RepeatingTimer(std::chrono::milliseconds interval, std::function<void()> action);
    ~RepeatingTimer();
    Q_DISABLE_COPY_MOVE(RepeatingTimer)

private:
    void schedule();
    void fire();

    Clock &m_clock;
    const std::chrono::milliseconds m_interval;
    const std::function<void()> m_action;
    std::chrono::milliseconds m_due; // on the clock's uptime
    Clock::Timer m_next = 0;
};

} // namespace quillmere
