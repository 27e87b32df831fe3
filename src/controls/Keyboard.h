#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace quillmere {

// Whether the user is at the keyboard: a key came last and no press of the pointer since. Only then is it shown where the
// keyboard's focus is, however it came there. Modifier keys alone do not count: they are held for clicks too.
class Keyboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool inUse READ isInUse NOTIFY inUseChanged)

public:
    static Keyboard &shared();
    static Keyboard *create(QQmlEngine *, QJSEngine *);

    bool isInUse() const { return m_inUse; }

    // Where the item or something in it has the keyboard, the focus scope around gets it. Whether that was so.
    Q_INVOKABLE static bool leave(QQuickItem *item);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void inUseChanged();

private:
    friend class Environment;
    // Hidden, or QML would make an object of its own instead of asking create().
    Keyboard();

    void setInUse(bool inUse);

    bool m_inUse = false;
};

} // namespace quillmere
