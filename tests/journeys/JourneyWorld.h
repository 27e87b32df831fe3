#pragma once

#include "journeys/Studio.h"
#include "standin/StandIn.h"

#include <memory>

// Of the keyring.
inline constexpr auto accessTokenEntry = "quillmere_auth_token";
inline constexpr auto refreshTokenEntry = "quillmere_refresh_token";
// The user that the service knows, and what the authenticator has of it.
inline const QString address = QStringLiteral("grace@example.org");
inline const QString secret = QStringLiteral("JBSWY3DPEHPK3PXPJBSWY3DPEHPK3PXP");

// What stands around the program in a journey: a keyring without tokens, a browser, and the service with its user. The display
// and the session bus are the test's own already.
class JourneyWorld {
public:
    // `browser` is a program that takes a URL.
    explicit JourneyWorld(const QString &browser);

    // Whether all of it is there.
    bool stands() const { return m_stands; }

    // What the program finds in its environment.
    QProcessEnvironment environment() const;
    std::unique_ptr<Studio> starts(const QStringList &arguments = {}) const;

    // Waits for so many requests to a path.
    bool isAsked(const QByteArray &method, const QByteArray &path, qsizetype times = 1) const;
    // Waits for so many of either token in the keyring.
    static bool hasTokens(int count);

    StandIn service;

private:
    bool m_stands;
};
