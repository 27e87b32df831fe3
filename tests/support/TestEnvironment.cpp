#include "support/TestEnvironment.h"

#include "identity/AuthManager.h"

namespace quillmere::testing {

QString TestEnvironment::isSignedIn(const QString &email)
{
    const QString token = service.signsIn(email);
    AuthManager &auth = AuthManager::shared();
    secrets.save(token, auth.tokenKey);
    auth.setIsAuthenticated(true);
    return token;
}

} // namespace quillmere::testing
