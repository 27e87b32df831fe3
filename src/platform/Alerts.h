#pragma once

#include <QCoroTask>

#include <QObject>
#include <QPromise>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <deque>
#include <memory>

class QJSEngine;
class QQmlEngine;

namespace quillmere {

// Modal alerts: one at a time, further ones behind it. While one is up the main queue is held.
class Alerts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool isUp READ isUp NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QList<QString> buttons READ buttons NOTIFY changed)

public:
    static Alerts &shared();
    static Alerts *create(QQmlEngine *, QJSEngine *);

    // Whoever waits gets -1.
    ~Alerts() override;

    // Shows an alert with one to three buttons; the result is the index of the one pressed. Return presses the first, Escape
    // the second. It is -1 when the program ends before anyone has pressed one.
    QCoro::Task<int> present(QString title, QString text, QStringList buttons);

    bool isUp() const { return !m_alerts.empty(); }
    QString title() const { return isUp() ? m_alerts.front().title : QString(); }
    QString text() const { return isUp() ? m_alerts.front().text : QString(); }
    QStringList buttons() const { return isUp() ? m_alerts.front().buttons : QStringList(); }

    // Presses a button of the alert that is up; an index that it does not have changes nothing.
    Q_INVOKABLE void answer(int button);

signals:
    void changed();

private:
    friend class Environment;
    // Hidden, or QML would make an object of its own instead of asking create().
    Alerts() = default;

    struct Alert {
        QString title;
        QString text;
        QStringList buttons;
        std::shared_ptr<QPromise<int>> answer;
    };
    std::deque<Alert> m_alerts;
};

} // namespace quillmere
