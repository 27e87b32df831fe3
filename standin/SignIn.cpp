#include "standin/SignIn.h"

#include "standin/Totp.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include <optional>

using namespace Qt::StringLiterals;

namespace standin {

namespace {

constexpr qint64 TicketSeconds = 600;
constexpr qsizetype SecretBytes = 20; // as many as SHA-1 gives, as RFC 4226 recommends

QByteArray randomBytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes) {
        byte = char(QRandomGenerator::system()->bounded(256));
    }
    return bytes;
}

// Addresses are the same account whatever the case of their letters.
QString accountKey(const QString &email)
{
    return email.toLower();
}

bool isKnownDomain(const QString &email)
{
    static const QStringList Domains{u"example.org"_s, u"example.com"_s, u"example.net"_s, u"quillmere.example"_s};
    return email.contains(u'@') && Domains.contains(accountKey(email).section(u'@', -1));
}

// The request's JSON object if it has exactly the keys told, otherwise what is wrong with it.
std::optional<QJsonObject> readBody(const Request &request, const QStringList &keys, QString &why)
{
    const QJsonDocument document = QJsonDocument::fromJson(request.body);
    if (request.header("Content-Type") != "application/json") {
        why = u"Content-Type must be application/json"_s;
    } else if (!document.isObject()) {
        why = u"The body must be a JSON object"_s;
    } else if (document.object().keys() != keys) {
        why = u"The body must have exactly the keys "_s + keys.join(u", "_s);
    }
    if (!why.isEmpty()) {
        return {};
    }
    return document.object();
}

Reply html(int status, const QString &file, const QByteArray &callback = {})
{
    QFile page(u":/standin/data/"_s + file);
    page.open(QIODevice::ReadOnly);
    Reply reply{status, "text/html; charset=utf-8", page.readAll(), {}};
    reply.body.replace("%CALLBACK%", callback.toPercentEncoding(":/?#=&_-.~").replace("&", "&amp;"));
    // The page holds tokens: it must not be kept, nor its address be told to anybody.
    reply.headers = {{"Cache-Control", "no-store"}, {"Referrer-Policy", "no-referrer"}};
    return reply;
}

} // namespace

void SignIn::addAccount(const QString &email, const QByteArray &secret)
{
    m_accounts.insert(accountKey(email), {secret, true});
}

QString SignIn::tokenFor(const QString &email)
{
    const QByteArray token = "qm_at_" + randomBytes(24).toHex();
    m_tokens.insert(token, accountKey(email));
    return QString::fromLatin1(token);
}

QString SignIn::accountOf(const Request &request) const
{
    const QByteArray authorization = request.header("Authorization");
    return authorization.startsWith("Bearer ") ? m_tokens.value(authorization.mid(7)) : QString();
}

Reply SignIn::loginInit(const Request &request)
{
    QString why;
    const std::optional<QJsonObject> body = readBody(request, {u"email"_s}, why);
    if (body && !body->value(u"email"_s).isString()) {
        why = u"email must be a string"_s;
    }
    if (!why.isEmpty()) {
        return Reply::error(400, why);
    }

    const QString email = body->value(u"email"_s).toString();
    const QString key = accountKey(email);
    if (!m_accounts.contains(key)) {
        if (!isKnownDomain(email)) {
            return Reply::error(404, u"No account for this address"_s);
        }
        m_accounts.insert(key, {randomBytes(SecretBytes), false});
    }
    const Account &account = m_accounts[key];
    if (account.isSetUp) {
        return Reply::json(200, R"({"mode":"login"})");
    }
    return Reply::json(200,
        R"({"mode":"setup","qrCode":"data:image/png;base64,)" + qrCodePng(otpauthUrl(email, account.secret)).toBase64()
            + R"(","secret":")" + base32Encoded(account.secret).toLatin1() + R"("})");
}

Reply SignIn::checkCode(const Request &request, const QString &origin)
{
    QString why;
    const std::optional<QJsonObject> body = readBody(request, {u"code"_s, u"email"_s, u"is_desktop"_s}, why);
    if (body && !(body->value(u"email"_s).isString() && body->value(u"code"_s).isString())) {
        why = u"email and code must be strings"_s;
    } else if (body && body->value(u"is_desktop"_s) != QJsonValue(true)) {
        why = u"is_desktop must be true"_s;
    }
    if (!why.isEmpty()) {
        return Reply::error(400, why);
    }

    const QString key = accountKey(body->value(u"email"_s).toString());
    if (!m_accounts.contains(key)) {
        return Reply::error(404, u"No account for this address"_s);
    }
    Account &account = m_accounts[key];
    if (!totpAccepts(account.secret, body->value(u"code"_s).toString(), m_now())) {
        return Reply::error(401, u"Wrong code"_s);
    }
    account.isSetUp = true;
    const QByteArray ticket = randomBytes(24).toHex();
    m_tickets.insert(ticket, {key, m_now().addSecs(TicketSeconds)});
    return Reply::json(200, R"({"redirectUrl":")" + origin.toLatin1() + "/desktop-login?ticket=" + ticket + R"("})");
}

Reply SignIn::page(const Request &request)
{
    const Ticket ticket = m_tickets.take(request.query("ticket"));
    if (ticket.email.isEmpty() || m_now() > ticket.expires) {
        return html(410, u"ticket-used.html"_s);
    }
    return html(200, u"desktop-login.html"_s,
        "com.quillmere.studio://callback#access_token=" + tokenFor(ticket.email).toLatin1() + "&refresh_token=qm_rt_"
            + randomBytes(24).toHex());
}

} // namespace standin
