#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The tabs of the analytics dashboard. Each is declared once, in the table in StudioAnalyticsTab.cpp.
class StudioAnalyticsTab : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    // From left to right.
    Q_PROPERTY(QList<int> allCases READ allCases CONSTANT)

public:
    enum Case {
        Overview,
        Training,
        Validation,
        Deployment,
        Monitoring,
        Telemetry,
    };
    Q_ENUM(Case)

    static constexpr int count = Telemetry + 1;

    static QList<int> allCases();

    // Each takes a Case.
    Q_INVOKABLE static QString rawValue(int tab);
    Q_INVOKABLE static QString title(int tab);
    Q_INVOKABLE static QUrl view(int tab);
};

} // namespace quillmere
