#pragma once

#include "platform/Result.h"

#include <QString>

namespace quillmere {

// How a request to the service fails once it has an answer, or cannot be made at all. `networkError` and `invalidResponse` are
// part of the vocabulary, but nothing raises them: a transport failure, an answer that is no HTTP among them, reaches the caller
// as it is.
enum class APIError {
    serverError,
    networkError,
    invalidURL,
    invalidResponse,
    unauthorized,
    forbidden,
    notFound,
    rateLimited,
};

// The text for the user. `serverError` and `networkError` show `message`: what the service says, or the description of
// the failure beneath. The other cases have their own text and take no message.
QString errorDescription(APIError error, const QString &message = {});

// The same as a Failure of kind Service, with the case as its code.
Failure failure(APIError error, const QString &message = {});

} // namespace quillmere
