#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// Figures by a printf format that a screen tells; platform/Text.h says which formats there are.
class Format : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE static QString real(const QString &format, double value);
    Q_INVOKABLE static QString whole(const QString &format, qint64 value);
};

} // namespace quillmere
