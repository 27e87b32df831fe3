#include "standin/Faults.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace standin {

namespace {

constexpr qint64 FillerBlock = 64 * KiB;

bool covers(const QByteArray &route, const Request &request)
{
    const QByteArray asked = request.method + ' ' + request.path();
    return asked == route || asked.startsWith(route.endsWith('/') ? route : route + '/');
}

QJsonValue bentValue(const QJsonValue &value, const std::function<void(QJsonObject &)> &bend)
{
    if (value.isArray()) {
        QJsonArray array;
        const QJsonArray items = value.toArray();
        for (const auto &item : items) {
            array.append(bentValue(item, bend));
        }
        return array;
    }
    if (value.isObject()) {
        QJsonObject object = value.toObject();
        for (auto field : object) {
            field = bentValue(field, bend);
        }
        bend(object);
        return object;
    }
    return value;
}

} // namespace

Delivery Delivery::of(const Reply &reply, bool closes)
{
    Delivery delivery;
    delivery.bytes = headOf(reply, reply.body.size(), closes) + reply.body;
    delivery.then = closes ? Then::Closes : Then::AwaitsNext;
    return delivery;
}

void FaultBook::add(const QByteArray &route, const Fault &fault)
{
    if (fault.times == StandIn::Always) {
        m_orders.removeIf(
            [&](const Order &order) { return order.route == route && order.fault.times == StandIn::Always; });
    }
    m_orders.append({route, fault});
}

std::optional<Fault> FaultBook::take(const Request &request)
{
    qsizetype best = -1;
    for (qsizetype i = 0; i < m_orders.size(); ++i) {
        if (!covers(m_orders[i].route, request)) {
            continue;
        }
        const bool counted = m_orders[i].fault.times != StandIn::Always;
        const bool longer = best < 0 || m_orders[i].route.size() > m_orders[best].route.size();
        const bool sameButSooner = best >= 0 && m_orders[i].route == m_orders[best].route && counted
            && m_orders[best].fault.times == StandIn::Always;
        if (longer || sameButSooner) {
            best = i;
        }
    }
    if (best < 0) {
        return {};
    }
    const Fault fault = m_orders[best].fault;
    if (fault.times != StandIn::Always && --m_orders[best].fault.times == 0) {
        m_orders.removeAt(best);
    }
    return fault;
}

Reply withObjects(const Reply &reply, const std::function<void(QJsonObject &)> &bend)
{
    const QJsonDocument document = QJsonDocument::fromJson(reply.body);
    Reply bent = reply;
    if (document.isArray()) {
        bent.body = QJsonDocument(bentValue(document.array(), bend).toArray()).toJson(QJsonDocument::Compact);
    } else if (document.isObject()) {
        bent.body = QJsonDocument(bentValue(document.object(), bend).toObject()).toJson(QJsonDocument::Compact);
    }
    return bent;
}

QString orderFromJson(StandIn &service, const QByteArray &json)
{
    const QJsonObject order = QJsonDocument::fromJson(json).object();
    const auto number = [&](const QString &key) { return order[key].toInteger(); };
    const auto bytes = [&](const QString &key) {
        const QJsonValue value = order[key];
        if (value.isObject()) {
            return QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact);
        }
        if (value.isArray()) {
            return QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact);
        }
        return value.toString().toUtf8();
    };
    using Verb = std::function<void(const StandIn::Route &)>;
    const QHash<QString, Verb> verbs{
        {u"answers"_s,
            [&](const StandIn::Route &route) {
                route.answers(int(number(u"status"_s)), bytes(u"body"_s),
                    order[u"content_type"_s].toString(u"application/json"_s).toUtf8());
            }},
        {u"redirects"_s,
            [&](const StandIn::Route &route) { route.redirects(int(number(u"status"_s)), bytes(u"location"_s)); }},
        {u"hangs_before_reply"_s, [](const StandIn::Route &route) { route.hangsBeforeReply(); }},
        {u"hangs_after_headers"_s, [](const StandIn::Route &route) { route.hangsAfterHeaders(); }},
        {u"drips"_s, [&](const StandIn::Route &route) { route.drips(int(number(u"bytes"_s))); }},
        {u"closes_without_reply"_s, [](const StandIn::Route &route) { route.closesWithoutReply(); }},
        {u"cuts_connection"_s, [&](const StandIn::Route &route) { route.cutsConnection(number(u"bytes"_s)); }},
        {u"sends_raw"_s, [&](const StandIn::Route &route) { route.sendsRaw(bytes(u"body"_s)); }},
        {u"sends_raw_and_hangs"_s, [&](const StandIn::Route &route) { route.sendsRawAndHangs(bytes(u"body"_s)); }},
        {u"drips_raw"_s,
            [&](const StandIn::Route &route) { route.dripsRaw(int(number(u"bytes"_s)), bytes(u"body"_s)); }},
        {u"repeats_raw"_s, [&](const StandIn::Route &route) { route.repeatsRaw(bytes(u"body"_s), bytes(u"block"_s)); }},
        {u"resets"_s, [&](const StandIn::Route &route) { route.resets(bytes(u"body"_s)); }},
        {u"sends_bad_chunk"_s, [](const StandIn::Route &route) { route.sendsBadChunk(); }},
        {u"sends_huge_body"_s, [&](const StandIn::Route &route) { route.sendsHugeBody(number(u"bytes"_s)); }},
        {u"sends_endless_body"_s, [](const StandIn::Route &route) { route.sendsEndlessBody(); }},
        {u"stops_reading"_s, [&](const StandIn::Route &route) { route.stopsReading(number(u"bytes"_s)); }},
        {u"cuts_request"_s, [&](const StandIn::Route &route) { route.cutsRequest(number(u"bytes"_s)); }},
        {u"gives_bad_json"_s, [](const StandIn::Route &route) { route.givesBadJson(); }},
        {u"omits_field"_s, [&](const StandIn::Route &route) { route.omitsField(bytes(u"field"_s)); }},
        {u"sends_wrong_type"_s, [&](const StandIn::Route &route) { route.sendsWrongType(bytes(u"field"_s)); }},
        {u"sends_field"_s,
            [&](const StandIn::Route &route) { route.sendsField(bytes(u"field"_s), order[u"value"_s]); }},
    };

    const QByteArray route = bytes(u"route"_s);
    const QString kind = order[u"kind"_s].toString();
    if (!route.contains(" /")) {
        return u"route must be a method and a path, such as \"GET /v1/models\""_s;
    }
    if (!verbs.contains(kind)) {
        return u"unknown kind of fault: "_s + kind;
    }
    if ((kind == u"answers" || kind == u"redirects") && (number(u"status"_s) < 200 || number(u"status"_s) > 599)) {
        return u"status must be a number from 200 to 599"_s;
    }
    if ((kind == u"drips" || kind == u"drips_raw") && number(u"bytes"_s) < 1) {
        return u"bytes must be a number above 0"_s;
    }
    if (kind == u"repeats_raw" && bytes(u"block"_s).isEmpty()) {
        return u"block must not be empty"_s;
    }
    verbs[kind](service.on(route, int(order[u"times"_s].toInteger(StandIn::Always))));
    return {};
}

} // namespace standin

using standin::Delivery;
using standin::Fault;
using standin::FillerBlock;
using standin::Reply;

void StandIn::Route::order(Fault fault) const
{
    fault.times = m_times;
    m_service.order(m_route, fault);
}

void StandIn::Route::answers(
    int status, const QByteArray &body, const QByteArray &contentType, const Headers &extraHeaders) const
{
    const Reply told{status, contentType, body, extraHeaders};
    order({.bend = [told](const Reply &) { return Delivery::of(told); }, .replaces = true});
}

void StandIn::Route::redirects(int status, const QByteArray &location) const
{
    answers(status, "{}", "application/json", {{"Location", location}});
}

void StandIn::Route::hangsBeforeReply() const
{
    order({.bend = [](const Reply &reply) {
        Delivery delivery = Delivery::of(reply);
        delivery.holdAt = 0;
        return delivery;
    }});
}

void StandIn::Route::hangsAfterHeaders() const
{
    order({.bend = [](const Reply &reply) {
        Delivery delivery = Delivery::of(reply);
        delivery.holdAt = delivery.bytes.size() - reply.body.size();
        return delivery;
    }});
}

void StandIn::Route::drips(int bytesPerStep) const
{
    order({.bend = [bytesPerStep](const Reply &reply) {
        Delivery delivery = Delivery::of(reply);
        delivery.step = bytesPerStep;
        return delivery;
    }});
}

void StandIn::Route::closesWithoutReply() const
{
    sendsRaw({});
}

void StandIn::Route::cutsConnection(qint64 afterBytes) const
{
    order({.bend = [afterBytes](const Reply &reply) {
        Delivery delivery = Delivery::of(reply);
        delivery.bytes.chop(std::max<qsizetype>(0, reply.body.size() - qsizetype(afterBytes)));
        delivery.then = Delivery::Then::Closes;
        return delivery;
    }});
}

void StandIn::Route::sendsRaw(const QByteArray &bytes) const
{
    order({.bend = [bytes](const Reply &) { return Delivery{.bytes = bytes, .then = Delivery::Then::Closes}; },
        .replaces = true});
}

void StandIn::Route::sendsRawAndHangs(const QByteArray &bytes) const
{
    order({.bend =
               [bytes](const Reply &) {
                   return Delivery{.bytes = bytes, .holdAt = bytes.size(), .then = Delivery::Then::Closes};
               },
        .replaces = true});
}

void StandIn::Route::dripsRaw(int bytesPerStep, const QByteArray &bytes) const
{
    order({.bend =
               [bytesPerStep, bytes](const Reply &) {
                   return Delivery{.bytes = bytes, .step = bytesPerStep, .then = Delivery::Then::Closes};
               },
        .replaces = true});
}

void StandIn::Route::repeatsRaw(const QByteArray &lead, const QByteArray &block) const
{
    order({.bend =
               [lead, block](const Reply &) {
                   return Delivery{
                       .bytes = lead, .fillerAt = lead.size(), .fillerBlock = block, .filler = Delivery::Endless};
               },
        .replaces = true});
}

void StandIn::Route::resets(const QByteArray &bytes) const
{
    order({.bend = [bytes](const Reply &) { return Delivery{.bytes = bytes, .then = Delivery::Then::Resets}; },
        .replaces = true});
}

void StandIn::Route::sendsBadChunk() const
{
    order({.bend = [](const Reply &reply) {
        const QByteArray good = reply.body.left(8);
        return Delivery{.bytes = headOf(reply, {}, false) + QByteArray::number(good.size(), 16) + "\r\n" + good
                + "\r\nZZ\r\n" + reply.body.mid(good.size()) + "\r\n0\r\n\r\n",
            .then = Delivery::Then::Closes};
    }});
}

void StandIn::Route::sendsHugeBody(qint64 bytes) const
{
    order({.bend = [bytes](const Reply &reply) {
        const qint64 blanks = std::max<qint64>(0, bytes - reply.body.size());
        const QByteArray head = headOf(reply, blanks + reply.body.size(), false);
        return Delivery{.bytes = head + reply.body,
            .fillerAt = head.size(),
            .fillerBlock = QByteArray(FillerBlock, ' '),
            .filler = blanks};
    }});
}

void StandIn::Route::sendsEndlessBody() const
{
    order({.bend = [](const Reply &reply) {
        const QByteArray head = headOf(reply, {}, false);
        const QByteArray chunk = QByteArray::number(FillerBlock, 16) + "\r\n" + QByteArray(FillerBlock, ' ') + "\r\n";
        return Delivery{.bytes = head, .fillerAt = head.size(), .fillerBlock = chunk, .filler = Delivery::Endless};
    }});
}

void StandIn::Route::stopsReading(qint64 afterBytes) const
{
    order({.readsOnly = afterBytes});
}

void StandIn::Route::cutsRequest(qint64 afterBytes) const
{
    order({.readsOnly = afterBytes, .cutsWhenRead = true});
}

void StandIn::Route::givesBadJson() const
{
    order({.bend = [](const Reply &reply) {
        Reply half = reply;
        half.body.truncate(reply.body.size() / 2);
        return Delivery::of(half);
    }});
}

void StandIn::Route::omitsField(const QByteArray &name) const
{
    order({.bend = [key = QString::fromUtf8(name)](const Reply &reply) {
        return Delivery::of(withObjects(reply, [key](QJsonObject &object) { object.remove(key); }));
    }});
}

void StandIn::Route::sendsWrongType(const QByteArray &name) const
{
    order({.bend = [key = QString::fromUtf8(name)](const Reply &reply) {
        return Delivery::of(withObjects(reply, [key](QJsonObject &object) {
            if (object.contains(key)) {
                object[key] = object[key].isString() ? QJsonValue(5) : QJsonValue(u"wrong"_s);
            }
        }));
    }});
}

void StandIn::Route::sendsField(const QByteArray &name, const QJsonValue &value) const
{
    order({.bend = [key = QString::fromUtf8(name), value](const Reply &reply) {
        return Delivery::of(withObjects(reply, [key, value](QJsonObject &object) {
            if (object.contains(key)) {
                object[key] = value;
            }
        }));
    }});
}
