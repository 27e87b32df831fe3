#pragma once

#include <QObject>
#include <QPointer>

#include <chrono>
#include <deque>
#include <functional>

namespace quillmere {

// Delayed and posted work of the main thread, in the order in which it falls due. While a modal alert is up the queue
// is held: what falls due waits and runs, still in order, once the last hold is released. Work is bound to a context
// object and is dropped with it. Network replies and repeating timers do not pass through here and go on.
class MainQueue : public QObject {
public:
    static MainQueue &shared();

    void async(QObject *context, std::function<void()> work);
    void asyncAfter(std::chrono::milliseconds delay, QObject *context, std::function<void()> work);

    void hold();
    void release();
    bool isHeld() const { return m_holds > 0; }

private:
    struct Work {
        QPointer<QObject> context;
        std::function<void()> run;
    };
    void fallDue(Work work);
    void drain();

    int m_holds = 0;
    std::deque<Work> m_waiting;
};

} // namespace quillmere
