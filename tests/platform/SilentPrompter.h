#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace keyring {

// Stands where the session's keyring has its prompts shown, and shows none: whoever asks for what is locked waits for somebody to
// type a password, until this goes.
class SilentPrompter : public QDBusVirtualObject {
public:
    SilentPrompter()
    {
        bus().registerVirtualObject(path(), this);
        m_stands = bus().registerService(name());
    }
    ~SilentPrompter() override
    {
        bus().unregisterService(name());
        bus().unregisterObject(path());
    }
    Q_DISABLE_COPY_MOVE(SilentPrompter)

    bool stands() const { return m_stands; }
    bool isAsked() const { return m_isAsked; }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        m_isAsked = m_isAsked || message.member() == QLatin1String("BeginPrompting");
        return connection.send(message.createReply());
    }

private:
    static QDBusConnection bus() { return QDBusConnection::sessionBus(); }
    static QString name() { return QStringLiteral("org.gnome.keyring.SystemPrompter"); }
    static QString path() { return QStringLiteral("/org/gnome/keyring/Prompter"); }

    bool m_stands = false;
    bool m_isAsked = false;
};

} // namespace keyring
