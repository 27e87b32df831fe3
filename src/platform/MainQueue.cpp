#include "platform/MainQueue.h"

#include "platform/Environment.h"

namespace quillmere {

MainQueue &MainQueue::shared()
{
    return Environment::current().shared<MainQueue>();
}

void MainQueue::async(QObject *context, std::function<void()> work)
{
    QMetaObject::invokeMethod(
        this, [this, work = Work{context, std::move(work)}]() mutable { fallDue(std::move(work)); },
        Qt::QueuedConnection);
}

void MainQueue::asyncAfter(std::chrono::milliseconds delay, QObject *context, std::function<void()> work)
{
    const auto fire = [self = QPointer<MainQueue>(this), work = Work{context, std::move(work)}]() mutable {
        if (self) {
            self->fallDue(std::move(work));
        }
    };
    Environment::current().clock->schedule(delay, fire);
}

void MainQueue::hold()
{
    ++m_holds;
}

void MainQueue::release()
{
    Q_ASSERT(m_holds > 0);
    --m_holds;
    // Not at once: whoever releases finishes what it is doing first.
    QMetaObject::invokeMethod(this, &MainQueue::drain, Qt::QueuedConnection);
}

void MainQueue::fallDue(Work work)
{
    m_waiting.push_back(std::move(work));
    // A piece of work that waits from an earlier hold goes first, and one that raises an alert stops those behind it.
    drain();
}

void MainQueue::drain()
{
    while (!isHeld() && !m_waiting.empty()) {
        const Work next = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (next.context) {
            next.run();
        }
    }
}

} // namespace quillmere
