#pragma once

#include "standin/StandIn.h"

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>

namespace quillmere::testing {

// A certificate and its key, good for nothing but a test.
struct Certificate {
    QSslCertificate certificate;
    QSslKey key;

    // Signed by itself, for a name in openssl's way of writing: "IP:127.0.0.1", "DNS:somebody.example".
    static Certificate madeFor(const QString &name);
};

// Makes this process trust a certificate while it lives.
class Trust {
public:
    explicit Trust(const Certificate &certificate);
    ~Trust() { QSslConfiguration::setDefaultConfiguration(m_before); }
    Q_DISABLE_COPY_MOVE(Trust)

private:
    QSslConfiguration m_before;
};

// A way to a stand-in through TLS: what comes in is handed to the stand-in, and what that says handed back.
class TlsDoor {
public:
    TlsDoor(const StandIn &behind, const Certificate &certificate);
    Q_DISABLE_COPY_MOVE(TlsDoor)

    QString origin() const; // "https://127.0.0.1:PORT"
    // Whoever began to talk, whether or not TLS came of it.
    int callers() const { return m_callers; }

private:
    QSslServer m_server;
    int m_callers = 0;
};

} // namespace quillmere::testing
