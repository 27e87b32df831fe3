#include "platform/Http.h"

#include "platform/Environment.h"
#include "platform/Urls.h"

#include <QCoreApplication>
#include <QIODevice>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>

#include <algorithm>
#include <coroutine>
#include <cstring>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

constexpr int mostRedirections = 10;

struct HttpTexts {
    Q_DECLARE_TR_FUNCTIONS(Http)
};

Failure transportFailure(const QString &text)
{
    return {Failure::Kind::Transport, text};
}

// A body that can be read once. Qt sends a request again, up to four times, when its connection closes early and its body can
// be rewound; this one cannot, so that one click stays one request.
class OneWayBody : public QIODevice {
public:
    explicit OneWayBody(QList<QByteArray> pieces) : m_pieces(std::move(pieces))
    {
        for (const QByteArray &piece : std::as_const(m_pieces)) {
            m_left += piece.size();
        }
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    bool seek(qint64) override { return isRedirected; }
    bool atEnd() const override { return m_left == 0; }
    qint64 bytesAvailable() const override { return m_left; }

    // After a 307 or 308 Qt rewinds the body and reports an error if that fails, although it then sends nothing again.
    bool isRedirected = false;

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        qint64 copied = 0;
        while (copied < maxSize && !m_pieces.isEmpty()) {
            const QByteArray &piece = m_pieces.first();
            const qint64 size = std::min(maxSize - copied, qint64(piece.size()) - m_offset);
            std::memcpy(data + copied, piece.constData() + m_offset, size_t(size));
            copied += size;
            m_offset += size;
            if (m_offset == piece.size()) {
                m_pieces.removeFirst();
                m_offset = 0;
            }
        }
        m_left -= copied;
        return copied > 0 || maxSize == 0 ? copied : -1;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QList<QByteArray> m_pieces;
    qint64 m_offset = 0; // in the first piece
    qint64 m_left = 0;
};

// Has the socket find its proxy itself, as it would anyway, because Qt then buffers what it reads. Otherwise it reads what has no
// TLS around it unbuffered, and may notice the end of a connection between two looks at it: half a body passes for a whole one
// then, a whole one for half of one, and the request is sent again.
class BufferedSockets : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &) override { return {QNetworkProxy::DefaultProxy}; }
};

// Whether the library reports more than the status says anyway: it has an error of its own for every status from 400 up.
bool isFailure(QNetworkReply::NetworkError error, int status)
{
    if (error == QNetworkReply::NoError
        || (error == QNetworkReply::ProxyAuthenticationRequiredError && status == 407)) {
        return false;
    }
    return status < 400 || error <= QNetworkReply::UnknownProxyError; // up to there lie the errors of the connection
}

} // namespace

// One request and its reply, on the wire once, with a manager of Qt's and thus a connection of its own.
class HttpSession::Exchange : public QObject {
public:
    Exchange(HttpSession &session, const HttpRequest &request) : m_session(session)
    {
        qint64 length = 0;
        for (const QByteArray &piece : request.body) {
            length += piece.size();
        }
        QNetworkRequest wire(request.url);
        for (const auto &[name, value] : request.headers) {
            wire.setRawHeader(name, value);
        }
        wire.setHeader(QNetworkRequest::ContentLengthHeader, length);
        wire.setRawHeader("Connection", "close");
        wire.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
        wire.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
        wire.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
        wire.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
        wire.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
        wire.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);

        auto *manager = new QNetworkAccessManager(&session.m_managers);
        manager->setProxyFactory(new BufferedSockets);
        auto *body = new OneWayBody(request.body);
        m_reply = manager->sendCustomRequest(wire, request.method, body);
        body->setParent(m_reply); // which may read it for as long as it is there itself
        m_reply->setReadBufferSize(1 << 20);
        m_session.m_underWay.insert(this);

        connect(m_reply, &QNetworkReply::metaDataChanged, this, [this, body] {
            const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
            body->isRedirected = status == 307 || status == 308;
            takeBytes();
        });
        connect(m_reply, &QNetworkReply::readyRead, this, &Exchange::takeBytes);
        connect(m_reply, &QNetworkReply::uploadProgress, this, [this] { m_lastByte = clock().uptime(); });
        connect(m_reply, &QNetworkReply::finished, this, &Exchange::finish);

        m_lastByte = clock().uptime();
        watchSilence();
    }

    ~Exchange() override
    {
        m_session.m_underWay.erase(this);
        clock().cancel(m_silence);
        clock().cancel(m_deadline);
        // The library may still touch its reply until the event loop comes round again.
        m_reply->disconnect(this);
        m_reply->manager()->deleteLater();
    }

    // Whoever awaits goes on before this returns, and may take the exchange with it.
    void cancel(const QString &why)
    {
        m_failure = why;
        m_reply->disconnect(this);
        m_reply->abort();
        end();
    }

    // What to await for the outcome; by one coroutine.
    struct End {
        Exchange &exchange;

        bool await_ready() const { return exchange.m_ended; }
        void await_suspend(std::coroutine_handle<> waiter) { exchange.m_waiter = waiter; }
        Result<HttpResponse> await_resume() { return exchange.outcome(); }
    };
    End ended() { return {*this}; }

    QByteArray location() const { return m_reply->rawHeader("Location"); }

private:
    static Clock &clock() { return *Environment::current().clock; }

    Result<HttpResponse> outcome()
    {
        if (m_failure) {
            return transportFailure(*m_failure);
        }
        const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (isFailure(m_reply->error(), status)) {
            return transportFailure(m_reply->errorString());
        }
        // Of the interim replies (RFC 9110, section 15.2) the library passes over 100 alone, and takes the others for the reply.
        if (status < 200) {
            return transportFailure(HttpTexts::tr("The reply could not be read."));
        }
        // A chunk length that cannot be read leaves no other trace in this library than a body that is not there.
        const bool chunked = m_reply->rawHeader("Transfer-Encoding").toLower().contains("chunked");
        if (chunked && m_received.isEmpty() && status >= 200 && status < 300) {
            return transportFailure(HttpTexts::tr("The reply's body could not be read."));
        }
        return HttpResponse{status, std::move(m_received)};
    }

    void watchSilence()
    {
        m_silence = clock().schedule(m_lastByte + silenceLimit - clock().uptime(), [this] {
            if (clock().uptime() - m_lastByte >= silenceLimit) {
                cancel(HttpTexts::tr("The request timed out."));
            } else {
                watchSilence();
            }
        });
    }

    void takeBytes()
    {
        m_lastByte = clock().uptime();
        if (m_deadline == 0) {
            m_deadline = clock().schedule(replyLimit, [this] { cancel(HttpTexts::tr("The reply took too long.")); });
        }
        m_received += m_reply->readAll();
        if (m_received.size() > sizeLimit) {
            cancel(HttpTexts::tr("The reply is too large."));
        }
    }

    void finish()
    {
        m_received += m_reply->readAll();
        if (m_received.size() > sizeLimit) {
            m_failure = HttpTexts::tr("The reply is too large.");
        }
        end();
    }

    void end()
    {
        m_ended = true;
        if (m_waiter) {
            m_waiter.resume();
        }
    }

    HttpSession &m_session;
    QNetworkReply *m_reply;
    QByteArray m_received;
    std::optional<QString> m_failure;
    std::chrono::milliseconds m_lastByte{0};
    Clock::Timer m_silence = 0;
    Clock::Timer m_deadline = 0;
    std::coroutine_handle<> m_waiter;
    bool m_ended = false;
};

QList<std::pair<QByteArray, QByteArray>> jsonHeaders()
{
    return {{"Content-Type", "application/json"}, {"User-Agent", "Quillmere-Studio/1.0"}};
}

HttpSession &HttpSession::shared()
{
    return Environment::current().shared<HttpSession>();
}

HttpSession::~HttpSession()
{
    // Who hears of it may ask for something else, which ends the same way.
    while (!m_underWay.empty()) {
        (*m_underWay.begin())->cancel(HttpTexts::tr("The program is ending."));
    }
}

QCoro::Task<Result<HttpResponse>> HttpSession::send(HttpRequest request)
{
    for (int redirections = 0;; ++redirections) {
        Exchange exchange(*this, request);
        auto outcome = co_await exchange.ended();
        if (!outcome || request.method != "GET" || redirections == mostRedirections) {
            co_return outcome;
        }
        const int status = outcome->status;
        const bool redirected = status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
        const QByteArray location = exchange.location();
        if (!redirected || location.isEmpty()) {
            co_return outcome;
        }
        const auto target =
            parseWebUrl(request.url.resolved(QUrl(QString::fromUtf8(location))).toString(QUrl::FullyEncoded));
        if (!target || (request.url.scheme() == u"https"_s && target->scheme() == u"http"_s)) {
            co_return outcome;
        }
        if (!isSameOrigin(request.url, *target)) {
            request.headers.removeIf(
                [](const auto &header) { return header.first.compare("Authorization", Qt::CaseInsensitive) == 0; });
        }
        request.url = *target;
    }
}

} // namespace quillmere
