#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace quillmere {

// One file as the one part of a form (RFC 7578).
struct UploadForm {
    QByteArray contentType;
    QList<QByteArray> body; // pieces that go out one after the other; the file's bytes are shared, not copied

    // The name goes into the frame as it is, quotes and all. One with CR, LF or NUL, which would forge the frame, fails as Encoding.
    // The boundary must not occur in the file.
    static Result<UploadForm> make(const QString &filename, QByteArray fileData, const QByteArray &boundary);
};

} // namespace quillmere
