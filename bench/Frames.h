#pragma once

#include <QObject>

#include <QCoroTask>

#include <atomic>
#include <functional>

class QQuickWindow;

namespace quillmere::bench {

// The frames of a window, whichever thread draws them.
class Frames : public QObject {
    Q_OBJECT

public:
    explicit Frames(QQuickWindow &window);

    // Makes a change and tells how long it took to the first frame on the screen that holds it, in milliseconds. timeTo() waits
    // for it in a loop of its own, in which what is deleted later stays; timeOf() lets the program's own loop run.
    double timeTo(const std::function<void()> &change);
    QCoro::Task<double> timeOf(std::function<void()> change);

    int count() const { return m_count; }
    qint64 lastAt() const { return m_lastAt; } // as nanoseconds() tells

signals:
    void swapped(); // on the main thread, some time after

private:
    int make(const std::function<void()> &change);

    QQuickWindow &m_window;
    std::atomic<int> m_changes = 0; // made,
    std::atomic<int> m_held = 0;    // taken over by the renderer,
    std::atomic<int> m_shown = 0;   // on the screen
    std::atomic<int> m_count = 0;
    std::atomic<qint64> m_lastAt = 0;
    std::atomic<qint64> m_shownAt = 0; // when the last change was on the screen for the first time
};

} // namespace quillmere::bench
