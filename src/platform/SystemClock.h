#pragma once

#include "platform/Clock.h"

#include <QElapsedTimer>
#include <QObject>

#include <unordered_map>

namespace quillmere {

// The machine's clock, with timers that keep to the millisecond (Qt's default ones may be 5 % late).
class SystemClock : public QObject, public Clock {
public:
    SystemClock();

    QDateTime now() const override;
    std::chrono::milliseconds uptime() const override;
    Timer schedule(std::chrono::milliseconds delay, std::function<void()> action) override;
    void cancel(Timer timer) override;

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    struct Action {
        Timer timer;
        std::function<void()> run;
    };

    QElapsedTimer m_sinceStart;
    // Qt gives the number of a timer that has run to another one, ours are never given twice.
    Timer m_last = 0;
    std::unordered_map<int, Action> m_actions; // by Qt's timer id
};

} // namespace quillmere
