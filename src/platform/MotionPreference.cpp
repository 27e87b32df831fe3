#include "platform/MotionPreference.h"

#include "platform/Environment.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

const auto portal = u"org.freedesktop.portal.Desktop"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;
const auto settings = u"org.freedesktop.portal.Settings"_s;

const auto appearance = u"org.freedesktop.appearance"_s;
// 1: reduced; 0, and whatever comes to mean something later: no preference.
const auto reducedMotion = u"reduced-motion"_s;
const auto gnome = u"org.gnome.desktop.interface"_s;
const auto enableAnimations = u"enable-animations"_s;

// The older of the portal's two questions wraps its answer twice.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

MotionPreference &MotionPreference::shared()
{
    return Environment::current().shared<MotionPreference>();
}

MotionPreference::MotionPreference(QDBusConnection bus) : m_bus(std::move(bus))
{
    if (!m_bus.isConnected()) {
        return;
    }
    m_bus.connect(portal, path, settings, u"SettingChanged"_s, this, SLOT(noteChange(QString, QString, QDBusVariant)));
    ask(appearance, reducedMotion);
    ask(gnome, enableAnimations);
}

void MotionPreference::ask(const QString &group, const QString &key)
{
    QDBusMessage message = QDBusMessage::createMethodCall(portal, path, settings, u"Read"_s);
    message << group << key;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, group, key](QDBusPendingCallWatcher *finished) {
        finished->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        if (!reply.isError()) {
            note(group, key, reply.value().variant());
        }
    });
}

void MotionPreference::noteChange(const QString &group, const QString &key, const QDBusVariant &value)
{
    note(group, key, value.variant());
}

void MotionPreference::note(const QString &group, const QString &key, const QVariant &value)
{
    const QVariant told = unwrapped(value);
    const bool before = isReduced();
    if (group == appearance && key == reducedMotion && told.canConvert<uint>()) {
        m_reduced = told.toUInt() == 1;
    } else if (group == gnome && key == enableAnimations && told.typeId() == QMetaType::Bool) {
        m_animations = told.toBool();
    }
    if (isReduced() != before) {
        emit changed();
    }
}

} // namespace quillmere
