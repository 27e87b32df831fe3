#include "standin/Connection.h"

#include <QTcpSocket>

#include <algorithm>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace standin {

namespace {
constexpr qsizetype LongestHead = 64 * KiB;
constexpr qint64 UnreadBytes =
    1024 * KiB; // what waits in the socket while nobody reads; then TCP holds the client back
constexpr qint64 UnsentBytes = 1024 * KiB;
} // namespace

Connection::Connection(QTcpSocket *socket, Service &service, QObject *parent)
    : QObject(parent), m_socket(socket), m_service(service)
{
    socket->setParent(this);
    socket->setReadBufferSize(UnreadBytes);
    connect(socket, &QTcpSocket::readyRead, this, &Connection::read);
    connect(socket, &QTcpSocket::bytesWritten, this, &Connection::pump);
    connect(socket, &QTcpSocket::disconnected, this, [this] {
        m_delivery.reset();
        if (m_exchange) {
            m_service.brokeOff(*m_exchange);
        }
        m_exchange.reset();
        emit closed();
    });
    // What arrived before the socket was handed over is not announced again.
    QMetaObject::invokeMethod(this, &Connection::read, Qt::QueuedConnection);
}

void Connection::read()
{
    // A request that comes while another is being answered waits in the socket.
    while (!m_delivery && !m_readsNoMore) {
        if (m_socket->bytesAvailable() > 0) {
            m_buffer += m_socket->readAll();
        }
        const qsizetype before = m_buffer.size();
        if (!m_exchange) {
            readHead();
        } else {
            readBody();
        }
        if (m_buffer.size() == before) {
            return;
        }
    }
}

void Connection::readHead()
{
    const qsizetype end = m_buffer.indexOf("\r\n\r\n");
    if (end < 0) {
        if (m_buffer.size() > LongestHead) {
            refuse(431, u"header too large"_s);
        }
        return;
    }
    QString why;
    const std::optional<Request> request = standin::readHead(m_buffer.left(end), why);
    if (request && why.isEmpty()) {
        why = BodyReader::refusal(*request);
    }
    if (!why.isEmpty()) {
        refuse(400, why);
        return;
    }
    m_buffer.remove(0, end + 4);
    m_exchange = std::make_unique<Exchange>();
    m_exchange->request = *request;
    m_body.emplace(*request);
    m_service.begins(*m_exchange);
    readBody();
}

void Connection::readBody()
{
    Request &request = m_exchange->request;
    for (;;) {
        const qsizetype before = m_buffer.size();
        const QByteArray content = m_body->take(m_buffer);
        request.bodySize += content.size();
        request.body += content.left(std::max<qint64>(0, m_exchange->keptBody - request.body.size()));
        if (m_exchange->form) {
            m_exchange->form->feed(content);
        }
        if (m_buffer.size() == before) {
            break;
        }
    }

    const std::optional<Fault> &fault = m_exchange->fault;
    if (fault && fault->readsOnly >= 0 && request.bodySize >= fault->readsOnly) {
        m_readsNoMore = true;
        if (fault->cutsWhenRead) {
            m_socket->abort();
        }
    } else if (m_body->isBroken()) {
        refuse(400, u"malformed chunk"_s);
    } else if (request.bodySize > m_exchange->largestBody) {
        refuse(413, u"body too large"_s);
    } else if (m_body->atEnd()) {
        const std::unique_ptr<Exchange> exchange = std::move(m_exchange);
        deliver(m_service.answer(*exchange));
    }
}

void Connection::refuse(int status, const QString &why)
{
    m_service.malformed(why);
    if (m_exchange) {
        m_service.brokeOff(*m_exchange);
    }
    m_exchange.reset();
    m_readsNoMore = true;
    deliver(Delivery::of(Reply::detail(status, why), true));
}

void Connection::deliver(const Delivery &delivery)
{
    m_delivery = delivery;
    m_sent = 0;
    m_dripped = 0;
    pump();
}

void Connection::release()
{
    if (m_delivery) {
        m_delivery->holdAt = -1;
    }
    pump();
}

bool Connection::drip()
{
    if (!m_delivery || m_delivery->step == 0) {
        return false;
    }
    m_dripped += m_delivery->step;
    pump();
    return true;
}

void Connection::pump()
{
    while (m_delivery && m_socket->bytesToWrite() < UnsentBytes) {
        if (m_sent == m_delivery->fillerAt && sendFiller()) {
            continue;
        }
        qsizetype limit = m_delivery->bytes.size();
        if (m_delivery->filler != 0) {
            limit = std::min(limit, m_delivery->fillerAt);
        }
        if (m_delivery->holdAt >= 0) {
            limit = std::min(limit, m_delivery->holdAt);
        }
        if (m_delivery->step > 0) {
            limit = std::min(limit, m_dripped);
        }
        if (m_sent < limit) {
            m_socket->write(m_delivery->bytes.sliced(m_sent, limit - m_sent));
            m_sent = limit;
        } else if (m_sent == m_delivery->bytes.size() && m_delivery->holdAt < 0) {
            end();
        } else {
            return;
        }
    }
}

bool Connection::sendFiller()
{
    const QByteArray &block = m_delivery->fillerBlock;
    if (m_delivery->filler == Delivery::Endless) {
        m_socket->write(block);
        return true;
    }
    const qint64 size = std::min<qint64>(m_delivery->filler, block.size());
    if (size > 0) {
        m_socket->write(block.left(qsizetype(size)));
    }
    m_delivery->filler -= size;
    return size > 0;
}

void Connection::end()
{
    const Delivery::Then then = m_delivery->then;
    m_delivery.reset();
    m_service.sent();
    if (then == Delivery::Then::AwaitsNext) {
        QMetaObject::invokeMethod(this, &Connection::read, Qt::QueuedConnection);
        return;
    }
    m_readsNoMore = true;
    if (then == Delivery::Then::Closes) {
        m_socket->disconnectFromHost();
        return;
    }
    // socket(7): a socket that does not linger at all tells its peer of a reset and not of an end.
    const linger none{1, 0};
    m_socket->flush();
    ::setsockopt(int(m_socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
    m_socket->abort();
}

} // namespace standin
