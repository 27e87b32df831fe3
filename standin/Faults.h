#pragma once

#include "standin/Http.h"

#include <functional>

namespace standin {

// How a reply goes onto the wire.
struct Delivery {
    enum class Then { AwaitsNext, Closes, Resets };
    static constexpr qint64 Endless = -1;

    QByteArray bytes;
    qsizetype holdAt = -1;       //< how many bytes go out before it waits to be released; -1: does not wait
    qsizetype step = 0;          //< bytes for every drip; 0: as fast as they go
    qsizetype fillerAt = 0;      //< where the filler is put in
    QByteArray fillerBlock = {}; //< what it repeats
    qint64 filler = 0;           //< how many bytes of it, or Endless
    Then then = Then::AwaitsNext;

    static Delivery of(const Reply &reply, bool closes = false);
};

// One order for a route to go wrong.
struct Fault {
    int times = StandIn::Always;
    // Makes the delivery out of the service's reply. An order that replaces gets an empty one: the service does not act
    // upon the request.
    std::function<Delivery(const Reply &)> bend = [](const Reply &reply) { return Delivery::of(reply); };
    bool replaces = false;
    qint64 readsOnly = -1;     //< stops after so many bytes of the request's body; -1: reads it all
    bool cutsWhenRead = false; //< ends the connection then instead of staying silent
};

// The orders in force.
class FaultBook {
public:
    void add(const QByteArray &route, const Fault &fault);
    void clear() { m_orders.clear(); }
    // The order for this request, counted down.
    std::optional<Fault> take(const Request &request);

private:
    struct Order {
        QByteArray route;
        Fault fault;
    };
    QList<Order> m_orders;
};

// The reply with its JSON body changed: `bend` is called for every object in it, the inner ones first.
Reply withObjects(const Reply &reply, const std::function<void(QJsonObject &)> &bend);

// Gives an order that is written as JSON (docs/service.md lists the kinds), as the order "POST /standin/faults" gets it.
// Returns what is wrong with the text; empty when the order was given.
QString orderFromJson(StandIn &service, const QByteArray &json);

} // namespace standin
