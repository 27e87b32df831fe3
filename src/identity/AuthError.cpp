#include "identity/AuthError.h"

#include "platform/Environment.h"

#include <QCoreApplication>

namespace quillmere {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(AuthError)
};

} // namespace

QString errorDescription(AuthError error, const QString &message)
{
    switch (error) {
    case AuthError::serverError:
        return message;
    case AuthError::invalidCredentials:
        return Texts::tr("Invalid email or password");
    case AuthError::invalidCode:
        return Texts::tr("Invalid authenticator code. Please try again.");
    case AuthError::userNotFound:
        return Texts::tr("No account found with this email. Please sign up at ")
            + Environment::current().hosts.signUpHost;
    case AuthError::networkError:
        return Texts::tr("Network error. Please check your connection.");
    }
    Q_UNREACHABLE();
}

Failure failure(AuthError error, const QString &message)
{
    return {Failure::Kind::SignIn, errorDescription(error, message), int(error)};
}

} // namespace quillmere
