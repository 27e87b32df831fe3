#include "platform/FileReader.h"

#include "platform/Descriptor.h"

#include <QCoroFuture>

#include <QCoreApplication>
#include <QtConcurrentRun>

#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmere {

namespace {

Failure readFailure(const char *text)
{
    return {Failure::Kind::File, QCoreApplication::translate("FileReader", text)};
}

Failure systemFailure(int error)
{
    return {Failure::Kind::File, qt_error_string(error)};
}

// A name is bytes to the system; a URL keeps them all, a QString only those that are UTF-8.
QByteArray pathOf(const QUrl &file)
{
    return QByteArray::fromPercentEncoding(file.path(QUrl::FullyEncoded).toLatin1());
}

Result<QByteArray> read(const QByteArray &path)
{
    // Without O_NONBLOCK, opening a pipe waits until somebody writes to it.
    const Descriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status = {};
    if (file < 0 || ::fstat(file, &status) < 0) {
        return systemFailure(errno);
    }
    if (S_ISDIR(status.st_mode)) {
        return systemFailure(EISDIR);
    }
    if (!S_ISREG(status.st_mode)) {
        return readFailure(QT_TRANSLATE_NOOP("FileReader", "This is not a regular file"));
    }
    QByteArray content;
    try {
        content = QByteArray(status.st_size, Qt::Uninitialized);
    } catch (const std::bad_alloc &) {
        return systemFailure(ENOMEM);
    }
    for (qsizetype done = 0; done < content.size();) {
        const ssize_t count = ::read(file, content.data() + done, size_t(content.size() - done));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return systemFailure(errno);
        }
        if (count == 0) {
            return readFailure(QT_TRANSLATE_NOOP("FileReader", "The file became shorter while it was read"));
        }
        done += count;
    }
    return content;
}

} // namespace

QCoro::Task<Result<QByteArray>> readFile(QUrl file)
{
    if (!file.isLocalFile()) {
        co_return readFailure(QT_TRANSLATE_NOOP("FileReader", "This is not a file on this computer"));
    }
    // Not within the co_await: g++ 12 destroys what a closure there captured once more than it was made.
    QFuture<Result<QByteArray>> reading = QtConcurrent::run(read, pathOf(file));
    static_cast<void>(co_await qCoro(reading).waitForFinished());
    co_return reading.takeResult();
}

QString fileNameOf(const QUrl &file)
{
    return QString::fromUtf8(pathOf(file).split('/').last());
}

} // namespace quillmere
