#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// The destinations of the main window. Each is declared once, in the table in SidebarItem.cpp.
class SidebarItem : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    // The rows of the sidebar from top to bottom.
    Q_PROPERTY(QList<int> mainGroup READ mainGroup CONSTANT)
    Q_PROPERTY(QList<int> systemGroup READ systemGroup CONSTANT)

public:
    enum Case {
        None = -1, // nothing is selected
        Dashboard,
        Projects,
        Datasets,
        Models,
        Training,
        Analytics,
        Settings,
        Documentation,
        FineTune,
        Chat,
        Deployment,
        Agents,
        Profile,
    };
    Q_ENUM(Case)

    static constexpr int count = Profile + 1;

    // Each takes a Case; for None the view is the dashboard's, the texts are empty.
    Q_INVOKABLE static QString rawValue(int item);
    Q_INVOKABLE static QString title(int item);
    Q_INVOKABLE static QString icon(int item);
    Q_INVOKABLE static QUrl view(int item);

    static QList<int> mainGroup();
    static QList<int> systemGroup();
};

} // namespace quillmere
