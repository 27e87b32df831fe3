#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The system's pasteboard.
class Pasteboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    // Replaces what is on it by a plain text.
    Q_INVOKABLE static void setString(const QString &text);
};

} // namespace quillmere
