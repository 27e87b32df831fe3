#pragma once

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLockFile>
#include <QObject>

namespace quillmere {

// Keeps the program to one process per user session. The first process holds a lock file in the user's runtime directory
// (XDG Base Directory Specification) and listens at a local socket that only this user can reach; a later one hands its message
// over and ends. A process that was killed leaves nothing that stops the next.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    // `name` tells programs apart.
    explicit SingleInstance(const QString &name);

    // True: this process is the first and is to listen() soon. False: the first one has the message. While the first is just
    // starting or ending this waits, ten seconds at most; then it gives up with false and prints why to standard error. Needs
    // no application object, so that a process that only hands its message over stays small.
    bool claim(const QString &message);

    // Takes messages from now on; needs the application object.
    void listen();

    // Lets another process be the first while this one lives on.
    void release();

signals:
    // Another process was started with this message, which may be anything that user typed.
    void received(const QString &message);

private:
    enum class HandOver { Done, Unreachable };
    HandOver handOver(const QByteArray &message, QDeadlineTimer deadline) const;
    void take();

    QString m_socketPath;
    QLockFile m_lock;
    QLocalServer m_server;
};

} // namespace quillmere
