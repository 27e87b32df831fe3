#pragma once

#include "platform/Environment.h"

#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

namespace quillmere::testing {

// A window of 800 by 600 points with a piece of QML in it, to be looked at pixel by pixel. Its ground is black. What the piece is
// given stands in its root as `given`. Whatever the engine warns about fails the test.
class Picture {
public:
    explicit Picture(const QString &qml, QObject *given = nullptr);

    Environment environment;
    QQuickView view;

    // By object name; "it" is the one that most tests are about.
    QQuickItem *item(const QString &name = QStringLiteral("it")) const;
    // Of a QML type below an item.
    QList<QQuickItem *> all(const QString &type, const QQuickItem *in) const;
    QStringList labels(const QQuickItem *in) const;

    QImage grab();
    // What has been drawn at a place of an item, in its own points.
    QColor at(const QQuickItem *item, QPointF place);
};

// Whether two colours are the same but for what antialiasing and rounding make of them.
bool isLike(const QColor &color, const QColor &other, int tolerance = 12);
bool isDark(const QColor &color);

} // namespace quillmere::testing
