#pragma once

#include "platform/Result.h"

#include <QCoroTask>

#include <QByteArray>
#include <QUrl>

namespace quillmere {

// The whole of a local file, read on a worker and held in memory once. Fails as File, in the system's words, where it cannot be
// opened or read, is no regular file (a directory, a pipe, a socket, a device), is larger than memory, or becomes shorter while it
// is read; one that grows is taken as long as it was. It never waits for the other end of a pipe.
QCoro::Task<Result<QByteArray>> readFile(QUrl file);

// The last component of the URL's path, as it is shown and sent; bytes that are no UTF-8 become U+FFFD.
QString fileNameOf(const QUrl &file);

} // namespace quillmere
