#pragma once

#include "standin/StandIn.h"
#include "support/Waiting.h"

#include <QTcpSocket>
#include <QTest>

// A client that sends bytes and looks at bytes, so that no HTTP library smooths anything over.
class WireClient {
public:
    explicit WireClient(const StandIn &service)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, service.port());
        QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] {
            if (m_reads) {
                m_received += m_socket.readAll();
            }
        });
    }

    void send(const QByteArray &bytes) { m_socket.write(bytes); }
    void closes() { m_socket.abort(); }
    void stopsReading()
    {
        m_reads = false;
        m_socket.setReadBufferSize(1024);
    }

    const QByteArray &received() const { return m_received; }
    bool receives(const QByteArray &text)
    {
        return quillmere::testing::eventually([&] { return m_received.contains(text); });
    }
    bool receives(const QByteArray &text, int times)
    {
        return quillmere::testing::eventually([&] { return m_received.count(text) >= times; });
    }
    bool receivesMoreThan(qsizetype bytes)
    {
        return quillmere::testing::eventually([&] { return m_received.size() > bytes; });
    }
    bool seesTheEnd()
    {
        return quillmere::testing::eventually([&] { return m_socket.state() == QTcpSocket::UnconnectedState; });
    }
    bool isOpen() const { return m_socket.state() == QAbstractSocket::ConnectedState; }

private:
    QTcpSocket m_socket;
    QByteArray m_received;
    bool m_reads = true;
};

// A request's bytes, with a Content-Length where there is a body. "Content-Type: application/json" comes with it unless
// the headers tell another one.
inline QByteArray requestBytes(
    const QByteArray &method, const QByteArray &target, const QByteArray &headers = {}, const QByteArray &body = {})
{
    QByteArray bytes = method + ' ' + target + " HTTP/1.1\r\nHost: 127.0.0.1\r\n" + headers;
    if (!body.isEmpty()) {
        bytes += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
    }
    if (!headers.contains("Content-Type")) {
        bytes += "Content-Type: application/json\r\n";
    }
    return bytes + "\r\n" + body;
}

struct WireReply {
    int status = 0;
    QByteArray head;
    QByteArray body;

    QByteArray header(const QByteArray &name) const
    {
        const qsizetype start = head.indexOf("\r\n" + name + ": ");
        return start < 0 ? QByteArray()
                         : head.mid(start + name.size() + 4, head.indexOf("\r\n", start + 2) - start - name.size() - 4);
    }
};

// Sends one request on a connection of its own and reads until the service ends it. Status 0 stands for no reply.
inline WireReply ask(const StandIn &service, const QByteArray &method, const QByteArray &target,
    const QByteArray &headers = {}, const QByteArray &body = {})
{
    WireClient client(service);
    client.send(requestBytes(method, target, "Connection: close\r\n" + headers, body));
    if (!client.seesTheEnd()) {
        return {};
    }
    const qsizetype end = client.received().indexOf("\r\n\r\n");
    const QByteArray head = client.received().left(end + 2);
    return {head.mid(9, 3).toInt(), head, client.received().mid(end + 4)};
}

inline QByteArray bearer(const QString &token)
{
    return "Authorization: Bearer " + token.toLatin1() + "\r\n";
}

// The body of an upload as the application sends it.
inline QByteArray formBody(const QByteArray &boundary, const QByteArray &filename, const QByteArray &content)
{
    return "--" + boundary + "\r\nContent-Disposition: form-data; name=\"file\"; filename=\"" + filename
        + "\"\r\nContent-Type: application/octet-stream\r\n\r\n" + content + "\r\n--" + boundary + "--\r\n";
}
