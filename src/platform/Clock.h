#pragma once

#include <QDateTime>

#include <chrono>
#include <functional>

namespace quillmere {

// Time as the program sees it, so that tests can turn it. Actions run on the main thread, those of one moment in the
// order in which they were scheduled.
class Clock {
public:
    using Timer = quint64;

    virtual ~Clock() = default;

    virtual QDateTime now() const = 0;                    // wall clock, UTC
    virtual std::chrono::milliseconds uptime() const = 0; // never runs backwards; its zero means nothing

    // Runs the action once after the delay, at the earliest when the event loop comes round again. A delay below zero
    // counts as zero.
    virtual Timer schedule(std::chrono::milliseconds delay, std::function<void()> action) = 0;
    // Forgets an action that has not run; any other number is ignored.
    virtual void cancel(Timer timer) = 0;
};

} // namespace quillmere
