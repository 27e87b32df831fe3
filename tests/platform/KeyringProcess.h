#pragma once

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QTest>

#include <csignal>

namespace keyring {

// The process of the session's keyring, which a test may hold up, let go on, and kill.
class Process {
public:
    Process() : m_id(pid_t(bus().servicePid(name()).value())) { }
    ~Process() { goesOn(); }
    Q_DISABLE_COPY_MOVE(Process)

    bool stops() const { return m_id > 1 && ::kill(m_id, SIGSTOP) == 0; }
    void goesOn() const
    {
        if (m_id > 1) {
            ::kill(m_id, SIGCONT);
        }
    }
    bool dies() const
    {
        return m_id > 1 && ::kill(m_id, SIGKILL) == 0
            && QTest::qWaitFor([] { return !bus().isServiceRegistered(name()).value(); }, 30'000);
    }

private:
    static QString name() { return QStringLiteral("org.freedesktop.secrets"); }
    static QDBusConnectionInterface &bus() { return *QDBusConnection::sessionBus().interface(); }

    pid_t m_id;
};

} // namespace keyring
