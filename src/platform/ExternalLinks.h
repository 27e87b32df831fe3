#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// What follows a press on a link that leads out of the program.
class ExternalLinks : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    // Hands the URL to the desktop. A text that is no URL is ignored.
    Q_INVOKABLE static void open(const QString &url);
};

} // namespace quillmere
