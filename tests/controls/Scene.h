#pragma once

#include "platform/Environment.h"
#include "support/FakeClock.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

namespace quillmere::testing {

// An exposed window of 800 by 600 points with a piece of QML in it, for a test that touches it as a user does. What the piece
// counts and keeps stands in its root, an Item named "root". Whatever the engine warns about fails the test.
class Scene {
public:
    explicit Scene(const QString &qml, bool animations = false);

    Environment environment;
    FakeClock &clock;
    QQuickView view;

    // By object name.
    QObject *object(const QString &name) const;
    QQuickItem *item(const QString &name) const;
    QVariant value(const QString &property) const { return view.rootObject()->property(property.toUtf8().constData()); }
    int count(const QString &property) const { return value(property).toInt(); }

    QPoint middle(const QQuickItem *item) const;
    void click(const QString &name);
    void hover(const QString &name);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void type(const QString &text);
    void turnWheel(const QString &name, QPoint angle, QPoint pixels = {});

    QAccessibleInterface *accessible(const QString &name) const;
    bool doAccessibly(const QString &action, const QString &name) const;
};

} // namespace quillmere::testing
