#include "platform/PortalFileChooser.h"

#include <QCoroFuture>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <QUuid>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace quillmere {

// The portal's filters, D-Bus type a(sa(us)): each a name and its rules, and a rule of kind 1 names a MIME type.
struct PortalRule {
    uint kind = 1;
    QString mimeType;
};
struct PortalFilter {
    QString name;
    QList<PortalRule> rules;
};

QDBusArgument &operator<<(QDBusArgument &argument, const PortalRule &rule)
{
    argument.beginStructure();
    argument << rule.kind << rule.mimeType;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PortalRule &rule)
{
    argument.beginStructure();
    argument >> rule.kind >> rule.mimeType;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const PortalFilter &filter)
{
    argument.beginStructure();
    argument << filter.name << filter.rules;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PortalFilter &filter)
{
    argument.beginStructure();
    argument >> filter.name >> filter.rules;
    argument.endStructure();
    return argument;
}

} // namespace quillmere

Q_DECLARE_METATYPE(quillmere::PortalRule)
Q_DECLARE_METATYPE(quillmere::PortalFilter)

namespace quillmere {

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto requestInterface = u"org.freedesktop.portal.Request"_s;

// Long enough for the bus to start the portal on a slow machine; it answers before it shows its dialog.
constexpr int callTimeout = 10'000;

Failure dialogFailure(const char *text)
{
    return {Failure::Kind::File, QCoreApplication::translate("PortalFileChooser", text)};
}

// So that the dialog stands over this window. A Wayland compositor would want the window exported first, which this version of Qt
// does not do for its users; there the dialog stands for itself.
QString parentWindow()
{
    const QWindow *window = QGuiApplication::focusWindow();
    const bool isX11 = QGuiApplication::platformName() == u"xcb"_s;
    return window && isX11 ? u"x11:"_s + QString::number(window->winId(), 16) : QString();
}

} // namespace

PortalFileChooser::~PortalFileChooser()
{
    close();
}

QCoro::Task<PortalFileChooser::Outcome> PortalFileChooser::open(FileRequest request)
{
    m_outcome.start();
    const QFuture<Outcome> outcome = m_outcome.future();
    if (m_bus.isConnected()) {
        call(request);
    } else {
        end(std::nullopt);
    }
    co_return co_await outcome;
}

void PortalFileChooser::call(const FileRequest &request)
{
    qDBusRegisterMetaType<PortalRule>();
    qDBusRegisterMetaType<QList<PortalRule>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();

    // The answer may overtake the reply, so it is listened for before the call, where portals put it since their version 0.9.
    const QString token = u"quillmere_"_s + QUuid::createUuid().toString(QUuid::Id128);
    const QString caller = m_bus.baseService().mid(1).replace(u'.', u'_');
    follow(u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(caller, token));

    auto *watcher = new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        // Before its reply the call itself ends.
        if (m_replied) {
            end(dialogFailure(QT_TRANSLATE_NOOP("PortalFileChooser", "The desktop's file dialog went away")));
        }
    });

    PortalFilter filter{request.typesName, {}};
    for (const QString &type : request.mimeTypes) {
        filter.rules.append({1, type});
    }
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, u"/org/freedesktop/portal/desktop"_s, u"org.freedesktop.portal.FileChooser"_s, u"OpenFile"_s);
    message << parentWindow() << request.title
            << QVariantMap{
                   {u"handle_token"_s, token},
                   {u"modal"_s, true},
                   {u"multiple"_s, false},
                   {u"directory"_s, false},
                   {u"filters"_s, QVariant::fromValue(QList<PortalFilter>{filter})},
               };
    auto *reply = new QDBusPendingCallWatcher(m_bus.asyncCall(message, callTimeout), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *finished) {
        const QDBusPendingReply<QDBusObjectPath> path = *finished;
        if (!path.isError()) {
            m_replied = true;
            follow(path.value().path());
            return;
        }
        // A portal that is only slow would still bring its dialog up.
        callOff();
        end(std::nullopt);
    });
}

void PortalFileChooser::follow(const QString &path)
{
    if (path == m_path) {
        return;
    }
    if (!m_path.isEmpty()) {
        m_bus.disconnect(service, m_path, requestInterface, u"Response"_s, this, SLOT(answered(uint, QVariantMap)));
    }
    m_path = path;
    m_bus.connect(service, m_path, requestInterface, u"Response"_s, this, SLOT(answered(uint, QVariantMap)));
}

void PortalFileChooser::close()
{
    callOff();
    end(Result<QList<QUrl>>(QList<QUrl>()));
}

void PortalFileChooser::callOff()
{
    if (!m_ended && !m_path.isEmpty()) {
        QDBusMessage message = QDBusMessage::createMethodCall(service, m_path, requestInterface, u"Close"_s);
        message.setAutoStartService(false);
        m_bus.send(message);
    }
}

void PortalFileChooser::answered(uint code, const QVariantMap &results)
{
    switch (code) {
    case 0: {
        QList<QUrl> urls;
        for (const QString &uri : results.value(u"uris"_s).toStringList()) {
            urls.append(QUrl(uri, QUrl::StrictMode));
        }
        end(Result<QList<QUrl>>(urls));
        return;
    }
    case 1:
        end(Result<QList<QUrl>>(QList<QUrl>()));
        return;
    default:
        end(dialogFailure(QT_TRANSLATE_NOOP("PortalFileChooser", "The desktop's file dialog failed")));
    }
}

void PortalFileChooser::end(Outcome outcome)
{
    if (m_ended) {
        return;
    }
    m_ended = true;
    m_outcome.addResult(std::move(outcome));
    m_outcome.finish();
}

} // namespace quillmere
