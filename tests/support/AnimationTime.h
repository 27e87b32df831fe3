#pragma once

#include "support/Waiting.h"

#include <QAnimationDriver>

namespace quillmere::testing {

// Animations stand still while it lives until a test turns their time. One that was just started counts from the next turn on
// once the event loop has come round.
class AnimationTime : public QAnimationDriver {
public:
    AnimationTime() { install(); }
    ~AnimationTime() override { uninstall(); }
    Q_DISABLE_COPY_MOVE(AnimationTime)

    qint64 elapsed() const override { return m_elapsed; }
    void pass(qint64 milliseconds)
    {
        m_elapsed += milliseconds;
        QAnimationDriver::advance();
    }
    // Frame after frame until the condition holds; false when it does not come to that.
    template <typename Condition> bool passesUntil(Condition condition)
    {
        constexpr qint64 frame = 16;
        return eventually([&] {
            if (condition()) {
                return true;
            }
            pass(frame);
            return false;
        });
    }

protected:
    // Told when there is something to move again, which counts from here.
    void start() override
    {
        m_elapsed = 0;
        QAnimationDriver::start();
    }

private:
    qint64 m_elapsed = 0;
};

} // namespace quillmere::testing
