#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The addresses that the documentation shows or leads to.
class DocAddresses : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QString onlineDocs READ onlineDocs CONSTANT)
    Q_PROPERTY(QString sourcePage READ sourcePage CONSTANT)
    Q_PROPERTY(QString communityInvite READ communityInvite CONSTANT)
    // Without a version: the routes on the page follow it.
    Q_PROPERTY(QString apiEndpoint READ apiEndpoint CONSTANT)

public:
    static QString onlineDocs();
    static QString sourcePage();
    static QString communityInvite();
    static QString apiEndpoint();
};

} // namespace quillmere
