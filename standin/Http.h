#pragma once

#include "standin/StandIn.h"

#include <optional>

// HTTP/1.1 (RFC 9112) as far as the service needs it.
namespace standin {

using Request = StandIn::Request;
using Headers = StandIn::Headers;

constexpr qint64 KiB = 1024;

struct Reply {
    int status = 200;
    QByteArray contentType = "application/json";
    QByteArray body;
    Headers headers;

    static Reply json(int status, const QByteArray &body) { return {status, "application/json", body, {}}; }
    // {"detail": ...}, the form of failures below /v1.
    static Reply detail(int status, const QString &text);
    // {"error": ...}, the form of failures of the sign-in.
    static Reply error(int status, const QString &text);
};

// Status line and header fields up to the empty line. A body without length is sent in chunks. `closes` announces that
// the connection ends after the reply.
QByteArray headOf(const Reply &reply, std::optional<qint64> contentLength, bool closes);

// Reads request line and header fields; the empty line is not part of `head`. Nothing when they are malformed, with the
// reason in `why`.
std::optional<Request> readHead(const QByteArray &head, QString &why);

// Takes the body of one request off a stream, by length or by chunks.
class BodyReader {
public:
    // Why a head's framing fields cannot be followed; empty when they can.
    static QString refusal(const Request &request);

    explicit BodyReader(const Request &request);

    // Removes from `buffer` what belongs to the body and returns the content in it. Call it until the buffer is left
    // unchanged.
    QByteArray take(QByteArray &buffer);
    bool atEnd() const { return m_state == State::End; }
    bool isBroken() const { return m_state == State::Broken; }

private:
    enum class State { Content, ChunkLength, ChunkContent, ChunkEnd, Trailer, End, Broken };

    std::optional<QByteArray> takeLine(QByteArray &buffer);

    State m_state = State::End;
    qint64 m_left = 0;
};

} // namespace standin
