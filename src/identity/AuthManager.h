#pragma once

#include "identity/KeychainHelper.h"
#include "platform/Observable.h"
#include "platform/Result.h"
#include "service/Records.h"
#include "service/ServiceSession.h"

#include <QtQml/qqmlregistration.h>

#include <optional>

class QJSEngine;
class QQmlEngine;

namespace quillmere {

// The session: whether somebody is signed in, and who. The window shows the login screen or the main window by
// `isAuthenticated` alone. The tokens stand in the secret store only and are read from it at each use; screens never see them.
class AuthManager : public quillmere::Observable, public ServiceSession {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool isAuthenticated READ isAuthenticated NOTIFY isAuthenticatedChanged)
    Q_PROPERTY(bool hasCurrentUser READ hasCurrentUser NOTIFY currentUserChanged)
    Q_PROPERTY(QString currentUserEmail READ currentUserEmail NOTIFY currentUserChanged)

public:
    static AuthManager &shared();
    static AuthManager *create(QQmlEngine *, QJSEngine *);

    ~AuthManager() override;

    KeychainHelper &keychain = KeychainHelper::shared();
    const QString tokenKey = QStringLiteral("quillmere_auth_token");
    // The refresh token is stored and deleted; nothing reads it.
    const QString refreshTokenKey = QStringLiteral("quillmere_refresh_token");

    // Rises with each sign-in and each logout: what was begun in one session and is over in another belongs to neither.
    quint64 session() const { return m_session; }

    bool isAuthenticated() const { return m_isAuthenticated; }
    void setIsAuthenticated(bool isAuthenticated);

    // May be absent while signed in: after a launch, until the service has told.
    const std::optional<UserProfile> &currentUser() const { return m_currentUser; }
    void setCurrentUser(std::optional<UserProfile> user);
    bool hasCurrentUser() const { return m_currentUser.has_value(); }
    QString currentUserEmail() const { return m_currentUser ? m_currentUser->email : QString(); }

    // No operation of the service tells a subscription, so this stays absent.
    const std::optional<SubscriptionInfo> &subscription() const { return m_subscription; }

    // Asks the service who is signed in and takes the answer as the current user, unless the session has ended meanwhile. A
    // failure is printed behind `complaint` and changes nothing.
    QCoro::Task<Result<UserProfile>> fetchCurrentUser(QString complaint);

    QCoro::Task<std::optional<QString>> accessToken() override;

    // Forgets the session on this machine; the service is not told.
    void logout() override;

signals:
    void isAuthenticatedChanged();
    void currentUserChanged();
    void subscriptionChanged();

private:
    friend class Environment;
    // Hidden, or QML would make an object of its own instead of asking create().
    AuthManager();

    bool m_isAuthenticated = false;
    quint64 m_session = 0;
    std::optional<UserProfile> m_currentUser;
    std::optional<SubscriptionInfo> m_subscription;
};

} // namespace quillmere
