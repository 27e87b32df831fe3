#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <chrono>

namespace quillmere::testing {

// Runs the event loop until the condition holds; false when that took longer than the limit. It looks after every event, and not
// every ten milliseconds as Qt Test does: a test is through as soon as it can be, and sees what happens between two events.
template <typename Condition>
bool eventually(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(30))
{
    const QDeadlineTimer deadline(limit);
    QTimer wake; // for what no event tells of
    wake.start(std::chrono::milliseconds(10));
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace quillmere::testing
