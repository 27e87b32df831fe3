#pragma once

#include "support/PlatformEnvironment.h"

#include <QPoint>
#include <QQuickWindow>
#include <QRandomGenerator>
#include <QStringList>
#include <QTemporaryFile>

namespace quillmere::testing {

// A user who clicks, drags, scrolls and types at random, and a service and a desktop that are as fickle. All of it is drawn from
// a seed. It remembers what it did last.
class Monkey {
public:
    Monkey(quint32 seed, QQuickWindow &window, PlatformEnvironment &world);

    // Does one thing.
    void act();

    // From 0 up to and without `end`.
    int draw(int end) { return m_draws.bounded(end); }
    const QStringList &lastActs() const { return m_acts; }

private:
    void click();
    void clickOnControl();
    void doubleClick();
    void drag();
    void hover();
    void scroll();
    void press();
    void type();
    void resize();
    void changeTheService();
    void answerThePicker();

    QPoint anywhere();
    Qt::KeyboardModifiers modifiers();
    void note(const QString &act);

    QRandomGenerator m_draws;
    QQuickWindow &m_window;
    PlatformEnvironment &m_world;
    QTemporaryFile m_file; // what it uploads
    QStringList m_acts;
};

} // namespace quillmere::testing
