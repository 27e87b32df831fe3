#pragma once

#include <QCoroTask>

#include <QString>

#include <optional>

namespace quillmere {

// What the client needs of the session: the token to send, and somebody to tell that the service no longer takes it.
class ServiceSession {
public:
    virtual ~ServiceSession() = default;

    // The access token as stored at this moment; absent when there is none.
    virtual QCoro::Task<std::optional<QString>> accessToken() = 0;
    // The service answered 401: the session is over.
    virtual void logout() = 0;
};

} // namespace quillmere
