#pragma once

#include <QEasingCurve>
#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace quillmere {

// How long what moves takes. Two kinds of motion: the interface's own (fades, what grows under the pointer, the way of a switch),
// which is over at once where the desktop asks for less motion, and that of data (a needle, digits), which says something and stays.
// Where the environment has no animations both are over at once.
class Motion : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    // Durations of the interface's own motion, in milliseconds.
    Q_PROPERTY(int standard READ standard NOTIFY changed) // the toolkit's default curve: ease-in-out over 0.35 s
    Q_PROPERTY(int brief READ brief NOTIFY changed)       // an answer to the pointer
    Q_PROPERTY(int popup READ popup NOTIFY changed)       // what hangs at a button
    Q_PROPERTY(int entrance READ entrance NOTIFY changed) // the splash
    Q_PROPERTY(int hover READ hover NOTIFY changed)       // along hoverSpring
    Q_PROPERTY(QEasingCurve hoverSpring READ hoverSpring CONSTANT)

public:
    explicit Motion(QObject *parent = nullptr);

    static int standard() { return ofInterface(0.35); }
    static int brief() { return ofInterface(0.15); }
    static int popup() { return ofInterface(0.12); }
    static int entrance() { return ofInterface(0.8); }
    static int hover() { return ofInterface(settlingTime(hoverResponse, hoverDamping)); }
    static QEasingCurve hoverSpring() { return spring(hoverResponse, hoverDamping); }

    // Seconds as milliseconds, for an animation.
    static int ofInterface(double seconds);
    static int ofData(double seconds);

    // A spring told by its response (the period in seconds of its undamped swing) and its damping fraction (1: no
    // overshoot): how many seconds it takes to settle within a thousandth, and its way there as an easing curve for an
    // animation of that duration.
    static double settlingTime(double response, double damping);
    static QEasingCurve spring(double response, double damping);

signals:
    void changed();

private:
    static constexpr double hoverResponse = 0.3;
    static constexpr double hoverDamping = 0.7;
};

} // namespace quillmere
