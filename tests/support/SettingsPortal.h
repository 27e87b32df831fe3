#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QMap>
#include <QObject>

namespace quillmere::testing {

// A desktop's portal, as far as it tells of settings.
class SettingsPortal : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit SettingsPortal(const QDBusConnection &bus);
    ~SettingsPortal() override;

    bool appears();
    void has(const QString &group, const QString &key, const QVariant &value);
    void changes(const QString &group, const QString &key, const QVariant &value);

    int questions = 0;

public slots:
    QDBusVariant Read(const QString &group, const QString &key);

private:
    QDBusConnection m_bus;
    QMap<std::pair<QString, QString>, QVariant> m_settings;
};

} // namespace quillmere::testing
