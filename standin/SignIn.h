#pragma once

#include "standin/Http.h"

#include <QHash>

#include <functional>

namespace standin {

// Accounts, their authenticators, and what they get for a right code: a ticket for the browser page, and there the tokens.
class SignIn {
public:
    using Clock = std::function<QDateTime()>;

    explicit SignIn(Clock now) : m_now(std::move(now)) { }

    void addAccount(const QString &email, const QByteArray &secret);
    QString tokenFor(const QString &email);
    void revokeTokens() { m_tokens.clear(); }
    // The account that a request's Authorization header speaks for; null without a valid one.
    QString accountOf(const Request &request) const;

    Reply loginInit(const Request &request);
    Reply checkCode(const Request &request, const QString &origin);
    // The page that the browser is sent to. It hands the tokens over to the application.
    Reply page(const Request &request);

private:
    struct Account {
        QByteArray secret;
        bool isSetUp = false;
    };
    struct Ticket {
        QString email;
        QDateTime expires;
    };

    Clock m_now;
    QHash<QString, Account> m_accounts;
    QHash<QByteArray, Ticket> m_tickets;
    QHash<QByteArray, QString> m_tokens;
};

} // namespace standin
