#include "standin/Http.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LongestChunkLine = 1024;

QByteArray reasonPhrase(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 201:
        return "Created";
    case 204:
        return "No Content";
    case 302:
        return "Found";
    case 400:
        return "Bad Request";
    case 401:
        return "Unauthorized";
    case 403:
        return "Forbidden";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 409:
        return "Conflict";
    case 410:
        return "Gone";
    case 413:
        return "Content Too Large";
    case 429:
        return "Too Many Requests";
    case 431:
        return "Request Header Fields Too Large";
    case 500:
        return "Internal Server Error";
    case 503:
        return "Service Unavailable";
    default:
        return "Status";
    }
}

// A token in the sense of RFC 9110, 5.6.2: what methods and header names consist of.
bool isToken(const QByteArray &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')
            || QByteArrayView("!#$%&'*+-.^_`|~").contains(c);
    });
}

bool isDecimal(const QByteArray &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

QByteArray oneKey(const QString &key, const QString &value)
{
    return QJsonDocument(QJsonObject{{key, value}}).toJson(QJsonDocument::Compact);
}

} // namespace

QByteArray StandIn::Request::path() const
{
    return target.split('?').first();
}

QByteArray StandIn::Request::query(const QByteArray &name) const
{
    const qsizetype mark = target.indexOf('?');
    if (mark < 0) {
        return {};
    }
    const QList<QByteArray> pairs = target.mid(mark + 1).split('&');
    for (const QByteArray &pair : pairs) {
        if (pair.startsWith(name + '=')) {
            return pair.mid(name.size() + 1);
        }
    }
    return {};
}

bool StandIn::Request::hasHeader(const QByteArray &name) const
{
    return std::any_of(headers.begin(), headers.end(),
        [&](const auto &header) { return header.first.compare(name, Qt::CaseInsensitive) == 0; });
}

QByteArray StandIn::Request::header(const QByteArray &name) const
{
    const auto found = std::find_if(headers.begin(), headers.end(),
        [&](const auto &header) { return header.first.compare(name, Qt::CaseInsensitive) == 0; });
    return found == headers.end() ? QByteArray() : found->second;
}

namespace standin {

Reply Reply::detail(int status, const QString &text)
{
    return json(status, oneKey(u"detail"_s, text));
}

Reply Reply::error(int status, const QString &text)
{
    return json(status, oneKey(u"error"_s, text));
}

QByteArray headOf(const Reply &reply, std::optional<qint64> contentLength, bool closes)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + ' ' + reasonPhrase(reply.status) + "\r\n";
    if (!contentLength || *contentLength > 0) {
        head += "Content-Type: " + reply.contentType + "\r\n";
    }
    // RFC 9110, 8.6: a 204 or 304 has no content and tells no length.
    if (reply.status != 204 && reply.status != 304) {
        head += contentLength ? "Content-Length: " + QByteArray::number(*contentLength) + "\r\n"
                              : QByteArray("Transfer-Encoding: chunked\r\n");
    }
    for (const auto &[name, value] : reply.headers) {
        head += name + ": " + value + "\r\n";
    }
    if (closes) {
        head += "Connection: close\r\n";
    }
    return head + "\r\n";
}

std::optional<Request> readHead(const QByteArray &head, QString &why)
{
    QList<QByteArray> lines;
    for (qsizetype from = 0; from <= head.size();) {
        qsizetype end = head.indexOf("\r\n", from);
        if (end < 0) {
            end = head.size();
        }
        lines += head.mid(from, end - from);
        from = end + 2;
    }

    const QList<QByteArray> words = lines.takeFirst().split(' ');
    if (words.size() != 3 || !isToken(words[0]) || !words[1].startsWith('/')
        || (words[2] != "HTTP/1.1" && words[2] != "HTTP/1.0")) {
        why = u"malformed request line"_s;
        return {};
    }
    Request request;
    request.method = words[0];
    request.target = words[1];
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        if (colon < 0 || !isToken(line.left(colon)) || line.contains('\r') || line.contains('\n')) {
            why = u"malformed header line"_s;
            return {};
        }
        // Only the one blank after the colon goes, so that a value that ends in a blank is seen as it was sent.
        QByteArray value = line.mid(colon + 1);
        if (value.startsWith(' ')) {
            value.remove(0, 1);
        }
        request.headers.append({line.left(colon), value});
    }
    if (words[2] == "HTTP/1.1" && !request.hasHeader("Host")) {
        why = u"no Host header"_s;
        return {};
    }
    return request;
}

QString BodyReader::refusal(const Request &request)
{
    const bool hasLength = request.hasHeader("Content-Length");
    if (request.hasHeader("Transfer-Encoding")) {
        if (hasLength) {
            return u"both Content-Length and Transfer-Encoding"_s;
        }
        if (request.header("Transfer-Encoding").trimmed().toLower() != "chunked") {
            return u"unknown Transfer-Encoding"_s;
        }
    }
    if (hasLength) {
        bool fits = false;
        const QByteArray length = request.header("Content-Length").trimmed();
        length.toLongLong(&fits);
        if (!fits || !isDecimal(length)) {
            return u"Content-Length is no number"_s;
        }
    }
    return {};
}

BodyReader::BodyReader(const Request &request)
{
    if (request.hasHeader("Transfer-Encoding")) {
        m_state = State::ChunkLength;
    } else {
        m_left = request.header("Content-Length").trimmed().toLongLong();
        m_state = m_left > 0 ? State::Content : State::End;
    }
}

QByteArray BodyReader::take(QByteArray &buffer)
{
    QByteArray content;
    while (!buffer.isEmpty() && !atEnd() && !isBroken()) {
        switch (m_state) {
        case State::Content:
        case State::ChunkContent: {
            const qsizetype size = qsizetype(std::min<qint64>(m_left, buffer.size()));
            content += buffer.left(size);
            buffer.remove(0, size);
            m_left -= size;
            if (m_left == 0) {
                m_state = m_state == State::Content ? State::End : State::ChunkEnd;
            }
            break;
        }
        case State::ChunkLength: {
            const std::optional<QByteArray> line = takeLine(buffer);
            if (!line) {
                return content;
            }
            bool isNumber = false;
            m_left = line->split(';').first().trimmed().toLongLong(&isNumber, 16);
            if (!isNumber || m_left < 0) {
                m_state = State::Broken;
            } else {
                m_state = m_left > 0 ? State::ChunkContent : State::Trailer;
            }
            break;
        }
        case State::ChunkEnd: {
            const std::optional<QByteArray> line = takeLine(buffer);
            if (!line) {
                return content;
            }
            m_state = line->isEmpty() ? State::ChunkLength : State::Broken;
            break;
        }
        case State::Trailer: {
            const std::optional<QByteArray> line = takeLine(buffer);
            if (!line) {
                return content;
            }
            if (line->isEmpty()) {
                m_state = State::End;
            }
            break;
        }
        case State::End:
        case State::Broken:
            break;
        }
    }
    return content;
}

std::optional<QByteArray> BodyReader::takeLine(QByteArray &buffer)
{
    const qsizetype end = buffer.indexOf("\r\n");
    if (end < 0) {
        if (buffer.size() > LongestChunkLine) {
            m_state = State::Broken;
        }
        return {};
    }
    const QByteArray line = buffer.left(end);
    buffer.remove(0, end + 2);
    return line;
}

} // namespace standin
