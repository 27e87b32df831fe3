#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// Where the links of the settings' "About" lead.
class AboutLinks : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QString documentation READ documentation CONSTANT)
    Q_PROPERTY(QString privacyPolicy READ privacyPolicy CONSTANT)
    Q_PROPERTY(QString termsOfService READ termsOfService CONSTANT)
    Q_PROPERTY(QString contactSupport READ contactSupport CONSTANT) // a mailto URL (RFC 6068)

public:
    static QString documentation();
    static QString privacyPolicy();
    static QString termsOfService();
    static QString contactSupport();
};

} // namespace quillmere
