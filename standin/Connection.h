#pragma once

#include "standin/Faults.h"
#include "standin/Http.h"
#include "standin/Multipart.h"

#include <QObject>

#include <memory>
#include <optional>

class QTcpSocket;

namespace standin {

// A request on its way in, with what the service decided when it saw the head.
struct Exchange {
    Request request;
    std::optional<MultipartReader> form; //< reads the body if set
    std::optional<Fault> fault;
    qint64 largestBody = 0; //< bytes; a larger one is answered with 413
    qint64 keptBody = 0;    //< bytes of the body that stay in the request
};

// What a connection asks of the service.
class Service {
public:
    virtual ~Service() = default;

    virtual void begins(Exchange &exchange) = 0;
    virtual Delivery answer(Exchange &exchange) = 0;
    // The connection ended, or was ended, amid the body.
    virtual void brokeOff(Exchange &exchange) = 0;
    virtual void malformed(const QString &what) = 0;
    virtual void sent() = 0;
};

// One client's connection: requests in, one at a time, and replies out at the pace that their delivery tells.
class Connection : public QObject {
    Q_OBJECT

public:
    Connection(QTcpSocket *socket, Service &service, QObject *parent);

    void release();
    // True when the delivery drips and had bytes left.
    bool drip();

signals:
    void closed();

private:
    void read();
    void readHead();
    void readBody();
    void refuse(int status, const QString &why);
    void deliver(const Delivery &delivery);
    void pump();
    bool sendFiller();
    void end();

    QTcpSocket *m_socket;
    Service &m_service;
    QByteArray m_buffer;
    std::unique_ptr<Exchange> m_exchange;
    std::optional<BodyReader> m_body;
    bool m_readsNoMore = false;

    std::optional<Delivery> m_delivery;
    qsizetype m_sent = 0;
    qsizetype m_dripped = 0;
};

} // namespace standin
