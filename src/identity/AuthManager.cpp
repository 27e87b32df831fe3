#include "identity/AuthManager.h"

#include "platform/Console.h"
#include "platform/Environment.h"
#include "service/QuillmereAPIClient.h"

#include <QJSEngine>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace quillmere {

AuthManager &AuthManager::shared()
{
    return Environment::current().shared<AuthManager>();
}

AuthManager *AuthManager::create(QQmlEngine *, QJSEngine *)
{
    QJSEngine::setObjectOwnership(&shared(), QJSEngine::CppOwnership);
    return &shared();
}

AuthManager::AuthManager()
{
    QuillmereAPIClient::shared().setSession(this);
}

AuthManager::~AuthManager()
{
    QuillmereAPIClient::shared().setSession(nullptr);
}

void AuthManager::setIsAuthenticated(bool isAuthenticated)
{
    ++m_session;
    publish(m_isAuthenticated, isAuthenticated, u"isAuthenticated"_s, &AuthManager::isAuthenticatedChanged);
}

void AuthManager::setCurrentUser(std::optional<UserProfile> user)
{
    publish(m_currentUser, std::move(user), u"currentUser"_s, &AuthManager::currentUserChanged);
}

QCoro::Task<Result<UserProfile>> AuthManager::fetchCurrentUser(QString complaint)
{
    const QPointer<AuthManager> self(this);
    const quint64 session = m_session;
    const auto user = co_await QuillmereAPIClient::shared().getCurrentUser();
    if (!user) {
        print(complaint + user.failure().localizedDescription());
    } else if (self && session == self->m_session) {
        self->setCurrentUser(*user);
    }
    co_return user;
}

QCoro::Task<std::optional<QString>> AuthManager::accessToken()
{
    return keychain.read(tokenKey);
}

void AuthManager::logout()
{
    keychain.remove(tokenKey);
    keychain.remove(refreshTokenKey);
    setIsAuthenticated(false);
    setCurrentUser({});
    publish(m_subscription, {}, u"subscription"_s, &AuthManager::subscriptionChanged);
}

} // namespace quillmere
