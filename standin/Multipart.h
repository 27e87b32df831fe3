#pragma once

#include "standin/Http.h"

#include <QCryptographicHash>

namespace standin {

// Reads an upload's body as it streams in and keeps its size, its SHA-256 and its first bytes, however large it is.
//
// It is stricter than RFC 7578 on purpose. The one part must stand in exactly this frame, whose file name is taken
// verbatim, quotes and all:
//
//     --BOUNDARY CRLF
//     Content-Disposition: form-data; name="file"; filename="FILENAME" CRLF
//     Content-Type: application/octet-stream CRLF
//     CRLF
//     the file's bytes
//     CRLF --BOUNDARY-- CRLF
class MultipartReader {
public:
    static constexpr qsizetype KeptBytes = 64 * KiB;

    // Takes the boundary from the request's Content-Type.
    explicit MultipartReader(const QByteArray &contentType);

    void feed(const QByteArray &bytes);
    // What is wrong with the body, now that all of it is there; empty when nothing is.
    QString failure() const;
    // The file, apart from its workspace. Meaningful only without a failure.
    StandIn::Upload upload() const;

private:
    enum class State { Frame, Content, Closed, Broken };

    void readFrame();
    void readContent();
    void fail(const QString &why);
    void takeContent(const QByteArray &bytes);

    State m_state = State::Frame;
    QByteArray m_boundary;
    QByteArray m_buffer;
    QString m_failure;
    StandIn::Upload m_upload;
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
};

} // namespace standin
