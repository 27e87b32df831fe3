#include "Frames.h"

#include "Bench.h"

#include <QCoroTimer>

#include <QQuickWindow>

namespace quillmere::bench {

Frames::Frames(QQuickWindow &window) : m_window(window)
{
    // The main thread stands still while the renderer takes over.
    connect(
        &window, &QQuickWindow::afterSynchronizing, this, [this] { m_held = m_changes.load(); }, Qt::DirectConnection);
    connect(
        &window, &QQuickWindow::frameSwapped, this,
        [this] {
            m_lastAt = nanoseconds();
            ++m_count;
            const int held = m_held;
            if (m_shown != held) {
                m_shownAt = m_lastAt.load();
                m_shown = held;
            }
            QMetaObject::invokeMethod(this, &Frames::swapped, Qt::QueuedConnection);
        },
        Qt::DirectConnection);
}

int Frames::make(const std::function<void()> &change)
{
    const int mine = ++m_changes;
    change();
    m_window.update();
    return mine;
}

double Frames::timeTo(const std::function<void()> &change)
{
    const qint64 begin = nanoseconds();
    const int mine = make(change);
    runUntil([&] { return m_shown == mine; }, "No frame came.");
    return double(m_shownAt - begin) / 1e6;
}

QCoro::Task<double> Frames::timeOf(std::function<void()> change)
{
    const qint64 begin = nanoseconds();
    const int mine = make(change);
    // Not by the signal: QCoro 0.8 crashes on one that is emitted twice before the first is handled.
    while (m_shown != mine) {
        co_await QCoro::sleepFor(std::chrono::milliseconds(2));
    }
    co_return double(m_shownAt - begin) / 1e6;
}

} // namespace quillmere::bench
