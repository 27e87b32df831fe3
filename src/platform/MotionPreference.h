#pragma once

#include <QDBusConnection>
#include <QObject>

#include <optional>
#include <utility>

class QDBusVariant;

namespace quillmere {

// Whether the desktop asks for less motion, as its portal tells (org.freedesktop.portal.Settings). It is asked once, and tells of each
// change. Where there is no bus, no portal on it, or none that knows, nothing is asked for.
class MotionPreference : public QObject {
    Q_OBJECT

public:
    static MotionPreference &shared();

    explicit MotionPreference(QDBusConnection bus);

    bool isReduced() const { return m_reduced.value_or(!m_animations); }

signals:
    void changed();

private:
    friend class Environment;
    MotionPreference() : MotionPreference(QDBusConnection::sessionBus()) { }

    Q_SLOT void noteChange(const QString &group, const QString &key, const QDBusVariant &value);
    void ask(const QString &group, const QString &key);
    void note(const QString &group, const QString &key, const QVariant &value);

    QDBusConnection m_bus;
    // What desktops agree on, and where it is missing what GNOME's own setting says.
    std::optional<bool> m_reduced;
    bool m_animations = true;
};

} // namespace quillmere
