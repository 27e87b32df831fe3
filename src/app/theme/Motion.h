#pragma once

#include <QEasingCurve>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// How things move. Where the environment has no animations every duration is 0, so that what moves arrives at once.
class Motion : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    // The toolkit's default curve: ease-in-out over 0.35 s.
    Q_PROPERTY(int standard READ standard CONSTANT)

public:
    static int standard() { return milliseconds(0.35); }

    // A duration for an animation, in milliseconds.
    Q_INVOKABLE static int milliseconds(double seconds);

    // A spring told by its response (the period in seconds of its undamped swing) and its damping fraction (1: no
    // overshoot): how long it takes to settle within a thousandth, and its way there as an easing curve for an
    // animation of that duration.
    Q_INVOKABLE static int springDuration(double response, double damping);
    Q_INVOKABLE static QEasingCurve spring(double response, double damping);
};

} // namespace quillmere
