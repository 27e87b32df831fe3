#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// How a check of the dataset came out, and how that is shown.
class CheckStatus : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    enum Case { Pass, Warning, Fail };
    Q_ENUM(Case)

    Q_INVOKABLE static QString symbol(Case status);
    Q_INVOKABLE static QColor color(Case status);
    // For assistive programs.
    Q_INVOKABLE static QString name(Case status);
};

} // namespace quillmere
