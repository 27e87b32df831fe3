#include "support/SettingsPortal.h"

#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

const auto portal = u"org.freedesktop.portal.Desktop"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;

} // namespace

SettingsPortal::SettingsPortal(const QDBusConnection &bus) : m_bus(bus)
{
}

SettingsPortal::~SettingsPortal()
{
    m_bus.unregisterObject(path);
    m_bus.unregisterService(portal);
}

bool SettingsPortal::appears()
{
    return m_bus.registerObject(path, this, QDBusConnection::ExportAllSlots) && m_bus.registerService(portal);
}

void SettingsPortal::has(const QString &group, const QString &key, const QVariant &value)
{
    m_settings[{group, key}] = value;
}

void SettingsPortal::changes(const QString &group, const QString &key, const QVariant &value)
{
    has(group, key, value);
    auto signal = QDBusMessage::createSignal(path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
    signal << group << key << QVariant::fromValue(QDBusVariant(value));
    m_bus.send(signal);
}

QDBusVariant SettingsPortal::Read(const QString &group, const QString &key)
{
    ++questions;
    if (!m_settings.contains({group, key})) {
        sendErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"Requested setting not found"_s);
        return {};
    }
    // This question's answer has always been wrapped twice.
    return QDBusVariant(QVariant::fromValue(QDBusVariant(m_settings[{group, key}])));
}

} // namespace quillmere::testing
