#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <utility>

namespace quillmere {

// The base of objects with published fields. Each write is announced twice: `willChange` names the field before the
// write, whether or not the value is another one, and the property's own signal follows after a write that changed it.
class Observable : public QObject {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using QObject::QObject;

signals:
    void willChange(const QString &field);

protected:
    template <typename Self, typename T>
    void publish(T &field, std::type_identity_t<T> value, const QString &name, void (Self::*changed)())
    {
        emit willChange(name);
        if constexpr (requires { field == value; }) {
            if (field == value) {
                return;
            }
        }
        field = std::move(value);
        emit(static_cast<Self *>(this)->*changed)();
    }
};

} // namespace quillmere
