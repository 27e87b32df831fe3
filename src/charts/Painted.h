#pragma once

#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The base of small pictures that are painted anew when one of their properties has become another, and only then.
class Painted : public QQuickPaintedItem {
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit Painted(QQuickItem *parent = nullptr) : QQuickPaintedItem(parent) { setAntialiasing(true); }

signals:
    void changed();

protected:
    template <typename T> void set(T &field, const T &value)
    {
        if (field != value) {
            field = value;
            update();
            emit changed();
        }
    }
};

} // namespace quillmere
