#pragma once

#include "platform/Clock.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace quillmere {

// Repeats what a held button does: first after a pause that a click does not last, then ten times a second.
class AutoRepeat : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool running READ isRunning WRITE setRunning NOTIFY runningChanged)

public:
    using QObject::QObject;
    ~AutoRepeat() override;

    bool isRunning() const { return m_timer.has_value(); }
    void setRunning(bool running);

signals:
    void runningChanged();
    void triggered();

private:
    void triggerAfter(std::chrono::milliseconds delay);

    std::optional<Clock::Timer> m_timer;
};

} // namespace quillmere
