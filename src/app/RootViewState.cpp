#include "app/RootViewState.h"

#include "identity/AuthManager.h"
#include "platform/Environment.h"
#include "platform/MainQueue.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace quillmere {

void RootViewState::appear()
{
    MainQueue::shared().asyncAfter(splashTime, this, [this] { checkSession(); });
}

QCoro::Task<> RootViewState::checkSession()
{
    const QPointer<RootViewState> self(this);
    const QPointer<AuthManager> auth(&AuthManager::shared());
    const Clock::Timer patience = Environment::current().clock->schedule(storePatience, [self] {
        if (self) {
            self->endSplash();
        }
    });
    const quint64 session = auth->session();
    const auto token = co_await auth->keychain.read(auth->tokenKey);
    if (!auth) {
        co_return; // and the clock has gone with it
    }
    Environment::current().clock->cancel(patience);
    if (token && !token->isEmpty() && session == auth->session()) {
        auth->setIsAuthenticated(true);
        auth->fetchCurrentUser(u"Failed to fetch user on launch: "_s);
    }
    if (self) {
        self->endSplash();
    }
}

void RootViewState::endSplash()
{
    publish(m_showSplash, false, u"showSplash"_s, &RootViewState::showSplashChanged);
}

} // namespace quillmere
