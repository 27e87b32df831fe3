#include "service/APIError.h"

#include <QCoreApplication>

namespace quillmere {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(APIError)
};

} // namespace

QString errorDescription(APIError error, const QString &message)
{
    switch (error) {
    case APIError::serverError:
    case APIError::networkError:
        return message;
    case APIError::invalidURL:
        return Texts::tr("Invalid API URL");
    case APIError::invalidResponse:
        return Texts::tr("Invalid response from server");
    case APIError::unauthorized:
        return Texts::tr("Please log in to continue");
    case APIError::forbidden:
        return Texts::tr("You don't have permission to access this resource");
    case APIError::notFound:
        return Texts::tr("Resource not found");
    case APIError::rateLimited:
        return Texts::tr("Too many requests, please try again later");
    }
    Q_UNREACHABLE();
}

Failure failure(APIError error, const QString &message)
{
    return Failure(Failure::Kind::Service, errorDescription(error, message), int(error));
}

} // namespace quillmere
