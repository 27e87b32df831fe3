#pragma once

#include "platform/Clock.h"

#include <map>

namespace quillmere::testing {

// A clock that stands still until a test turns it. Its wall clock starts at noon UTC of 20 November 2026.
class FakeClock : public Clock {
public:
    QDateTime now() const override;
    std::chrono::milliseconds uptime() const override
    {
        ++looks;
        return m_uptime;
    }
    Timer schedule(std::chrono::milliseconds delay, std::function<void()> action) override;
    void cancel(Timer timer) override;

    // Runs what falls due up to and with that moment, in order, each at its own time.
    void advance(std::chrono::milliseconds by);
    // Lets time pass with an event loop too busy to run anything; what fell due runs at the next advance().
    void stall(std::chrono::milliseconds by) { m_uptime += by; }

    // How often somebody asked for the uptime: a sign that something has happened there.
    mutable int looks = 0;

    qsizetype scheduledCount() const { return qsizetype(m_actions.size()); }
    // Those that fall due exactly so long from now.
    qsizetype dueIn(std::chrono::milliseconds delay) const;

private:
    struct Action {
        std::chrono::milliseconds due;
        std::function<void()> run;
    };

    std::chrono::milliseconds m_uptime{0};
    Timer m_last = 0;
    std::map<Timer, Action> m_actions;
};

} // namespace quillmere::testing
