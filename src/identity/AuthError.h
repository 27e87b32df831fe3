#pragma once

#include "platform/Result.h"

#include <QString>

namespace quillmere {

// Why a sign-in failed. `invalidCredentials` is part of the vocabulary, but nothing raises it: there is no password.
enum class AuthError {
    serverError,
    invalidCredentials,
    invalidCode,
    userNotFound,
    networkError,
};

// The text for the user. `serverError` shows `message`, what the service says; the other cases have their own text.
QString errorDescription(AuthError error, const QString &message = {});

// The same as a Failure of kind SignIn, with the case as its code.
Failure failure(AuthError error, const QString &message = {});

} // namespace quillmere
