#pragma once

#include <QCoroTask>

#include <QObject>
#include <QPromise>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <memory>

class QJSEngine;
class QQmlEngine;

namespace quillmere {

// How a sign-in in the browser ended.
struct BrowserOutcome {
    enum class Kind { Callback, Canceled, Failed };

    Kind kind;
    QUrl callback;   // with Callback: the URL that the browser was sent back to
    QString failure; // with Failed: why, in the platform's words
};

// A sign-in in the system's own browser (RFC 8252): the URL opens there, and the session waits until a URL of the callback
// scheme comes back, through the desktop or pasted by hand, or until somebody cancels. One session waits at a time; a new one
// ends it as canceled.
class BrowserSession : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool waiting READ isWaiting NOTIFY waitingChanged)
    // Whether the desktop took the URL; where it did not, there is still the address to copy.
    Q_PROPERTY(bool opened READ wasOpened NOTIFY openedChanged)

public:
    static BrowserSession &shared();
    static BrowserSession *create(QQmlEngine *, QJSEngine *);

    // Cancels what waits.
    ~BrowserSession() override;

    QCoro::Task<BrowserOutcome> authenticate(QUrl url, QString callbackScheme);

    bool isWaiting() const { return m_waiting != nullptr; }
    bool wasOpened() const { return m_opened; }

    // Ends the waiting session if `text` is a URL of its scheme; says whether it did. Anything else changes nothing.
    Q_INVOKABLE bool deliver(const QString &text);
    // These concern the waiting session; without one they do nothing.
    Q_INVOKABLE void cancel();
    Q_INVOKABLE void openAgain();
    Q_INVOKABLE void copyLink();

signals:
    void waitingChanged();
    void openedChanged();

private:
    friend class Environment;
    // Hidden, or QML would make an object of its own instead of asking create().
    BrowserSession() = default;
    void finish(const BrowserOutcome &outcome);

    std::shared_ptr<QPromise<BrowserOutcome>> m_waiting;
    QUrl m_url;
    QString m_scheme;
    bool m_opened = true;
};

} // namespace quillmere
