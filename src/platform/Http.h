#pragma once

#include "platform/Result.h"

#include <QCoroTask>

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <set>
#include <utility>

namespace quillmere {

// One request as it goes out. Header values go out letter for letter. The body is the pieces one after the other; they are
// shared, not copied, so that a large file in the middle costs its own size once. Every request tells a Content-Length, one
// without a body that it is zero.
struct HttpRequest {
    QByteArray method;
    QUrl url;
    QList<std::pair<QByteArray, QByteArray>> headers;
    QList<QByteArray> body;
};

// What every request tells whose body is JSON or would be.
QList<std::pair<QByteArray, QByteArray>> jsonHeaders();

// What came back, whatever the status says.
struct HttpResponse {
    int status = 0;
    QByteArray body;
};

// The program's one way to the network: HTTP/1.1, no cache, no cookies, nothing sent twice.
//
// Every request has a connection of its own. One that has served before may just be ending, or have died while the computer slept,
// and would take the request with it, as nothing is sent again.
//
// A request fails as Transport when no whole reply came: connection or TLS failed, it was cut, a body of status 200 to 299 could
// not be unpacked, 60 s went by without a byte of either body (the head of a reply counts as one byte), the reply took ten
// minutes from its first byte, or it is larger than 64 MB. Otherwise the status decides, and that is the caller's business.
// A chunk length that is no number ends the reply there, with what came before it as its body; it fails if nothing did.
//
// A GET is redirected at most ten times, never from https to http, and `Authorization` stays behind for good when the origin
// changes (RFC 9110, section 15.4). A redirection that is not followed, any of a POST among them, is the response.
class HttpSession {
public:
    static constexpr std::chrono::seconds silenceLimit{60};
    static constexpr std::chrono::minutes replyLimit{10};
    static constexpr qsizetype sizeLimit = 64 * 1000 * 1000;

    static HttpSession &shared();

    HttpSession() = default;
    // Requests under way fail before this returns.
    ~HttpSession();
    Q_DISABLE_COPY_MOVE(HttpSession)

    QCoro::Task<Result<HttpResponse>> send(HttpRequest request);

private:
    class Exchange;

    QObject m_managers; // their parent; there is one for each request
    std::set<Exchange *> m_underWay;
};

} // namespace quillmere
