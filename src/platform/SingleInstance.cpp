#include "platform/SingleInstance.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <QtEndian>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

// A message is its length in four bytes, most significant first, and then its UTF-8; the answer is one byte.
constexpr quint32 longestMessage = 1 << 20;
constexpr char receipt = '+';

QString runtimePath(const QString &file)
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + u'/' + file;
}

} // namespace

SingleInstance::SingleInstance(const QString &name)
    : m_socketPath(runtimePath(name + u".socket"_s)), m_lock(runtimePath(name + u".lock"_s))
{
    m_lock.setStaleLockTime(0); // a lock is stale when its process is gone, not when it is old
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::take);
}

bool SingleInstance::claim(const QString &message)
{
    const QDeadlineTimer deadline(10'000);
    do {
        if (m_lock.tryLock()) {
            QFile::setPermissions(m_lock.fileName(), QFile::ReadOwner | QFile::WriteOwner);
            return true;
        }
        if (handOver(message.toUtf8().left(longestMessage), deadline) == HandOver::Done) {
            return false;
        }
        QThread::msleep(20);
    } while (!deadline.hasExpired());
    std::fputs("Quillmere Studio is already running and does not answer.\n", stderr);
    return false;
}

SingleInstance::HandOver SingleInstance::handOver(const QByteArray &message, QDeadlineTimer deadline) const
{
    // The socket's classes want an application object, which a process that only hands over does not have yet.
    std::unique_ptr<QCoreApplication> application;
    int argumentCount = 1;
    char programName[] = "quillmere-studio";
    char *arguments[] = {programName, nullptr};
    if (!QCoreApplication::instance()) {
        application = std::make_unique<QCoreApplication>(argumentCount, arguments);
    }
    const auto timeLeft = [&deadline] { return int(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(m_socketPath);
    if (!socket.waitForConnected(timeLeft())) {
        return HandOver::Unreachable;
    }
    const quint32 length = qToBigEndian(quint32(message.size()));
    socket.write(reinterpret_cast<const char *>(&length), sizeof length);
    socket.write(message);
    // A first process that is slow to answer may have read the message: it is not told a second time, as long as the
    // connection stands.
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(timeLeft())) {
            return HandOver::Unreachable;
        }
    }
    char answer = 0;
    const bool answered = socket.bytesAvailable() > 0 || socket.waitForReadyRead(timeLeft());
    return answered && socket.getChar(&answer) && answer == receipt ? HandOver::Done : HandOver::Unreachable;
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(m_socketPath); // left by a process that was killed
    if (!m_server.listen(m_socketPath)) {
        std::fprintf(stderr, "Cannot listen at %s\n", qPrintable(m_socketPath));
    }
}

void SingleInstance::release()
{
    m_server.close();
    m_lock.unlock();
}

void SingleInstance::take()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        const auto read = [this, socket] {
            quint32 length = 0;
            if (socket->bytesAvailable() < qint64(sizeof length)) {
                return;
            }
            socket->peek(reinterpret_cast<char *>(&length), sizeof length);
            length = qFromBigEndian(length);
            if (length > longestMessage) {
                socket->abort();
                return;
            }
            if (socket->bytesAvailable() < qint64(sizeof length) + length) {
                return;
            }
            socket->skip(sizeof length);
            const QString message = QString::fromUtf8(socket->read(length));
            socket->putChar(receipt);
            socket->flush();
            socket->disconnectFromServer();
            emit received(message);
        };
        connect(socket, &QLocalSocket::readyRead, this, read);
        read();
    }
}

} // namespace quillmere
