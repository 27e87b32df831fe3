#include "faults/Fault.h"

#include "faults/ReplyMutation.h"
#include "platform/Environment.h"
#include "platform/Http.h"

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

using Wait = Fault::Wait;

const auto networkError = u"Network error. Please check your connection."_s;
const auto invalidCode = u"Invalid authenticator code. Please try again."_s;
const auto userNotFound = u"No account found with this email. Please sign up at https://signup.example"_s;
const auto logIn = u"Please log in to continue"_s;
const auto noPermission = u"You don't have permission to access this resource"_s;
const auto notFound = u"Resource not found"_s;
const auto tooMany = u"Too many requests, please try again later"_s;

// What both kinds of services say of a request that they refuse.
const QByteArray boom = R"({"detail": "Boom", "error": "Bang"})";

QString unknownError(const QString &status)
{
    return u"Unknown error (status: "_s + status + u')';
}

// Endings that many faults have

Endings given()
{
    using ending::theReply;
    return {theReply, theReply, theReply, theReply, theReply, theReply};
}

Endings failing(const QString &ending)
{
    return {ending, ending, ending, ending::unexpected(ending), ending::unexpected(ending), ending::nothing};
}

Endings brokenOff()
{
    return failing(ending::brokenOff);
}

Endings unreadable()
{
    return failing(ending::unreadable);
}

// What comes over the wire

QByteArray head(const QByteArray &fields, const QByteArray &status = "200 OK")
{
    return "HTTP/1.1 " + status + "\r\n" + fields + "\r\n";
}

QByteArray lengthOf(const QByteArray &body)
{
    return "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
}

QByteArray whole(const QByteArray &body, const QByteArray &fields = {})
{
    return head(lengthOf(body) + fields) + body;
}

QByteArray chunk(const QByteArray &content, const QByteArray &lengthInstead = {})
{
    return (lengthInstead.isEmpty() ? QByteArray::number(content.size(), 16) : lengthInstead) + "\r\n" + content
        + "\r\n";
}

QByteArray chunked(const QByteArray &chunks)
{
    return head("Transfer-Encoding: chunked\r\n") + chunks;
}

const QByteArray lastChunk = "0\r\n\r\n";

QByteArray half(const QByteArray &text)
{
    return text.left(text.size() / 2);
}

QByteArray otherHalf(const QByteArray &text)
{
    return text.mid(text.size() / 2);
}

// zlib's format (RFC 1950), which goes by the name of deflate.
QByteArray deflated(const QByteArray &content)
{
    return qCompress(content).mid(4);
}

// The reply with another field in front, of which nobody knows.
QByteArray withUnknownField(const QByteArray &reply, const QByteArray &value)
{
    return "{\"x\": " + value + ", " + reply.mid(1);
}

// Bound and not merely free, so that no other program takes it meanwhile.
QString originWhereNobodyListens(Scene &scene)
{
    scene.deaf.bind(QHostAddress::LocalHost);
    return u"http://127.0.0.1:%1"_s.arg(scene.deaf.localPort());
}

// Faults that are told by what is sent

using Bytes = std::function<QByteArray(const QByteArray &reply)>;

Fault raw(const QString &name, const Bytes &bytes, const Endings &endings)
{
    return {name, [bytes](Scene &scene) { scene.route().sendsRaw(bytes(scene.operation.reply)); }, endings};
}

Fault hanging(const QString &name, const Bytes &bytes)
{
    return {name, [bytes](Scene &scene) { scene.route().sendsRawAndHangs(bytes(scene.operation.reply)); },
        failing(ending::timedOut), Wait::AMinuteFromThere};
}

Fault body(const QString &name, const Bytes &bytes, const Endings &endings)
{
    return {name, [bytes](Scene &scene) { scene.route().answers(200, bytes(scene.operation.reply)); }, endings};
}

Fault answer(const QString &name, int status, const QByteArray &body, const Endings &endings,
    const StandIn::Headers &fields = {})
{
    Fault fault{name, [=](Scene &scene) { scene.route().answers(status, body, "application/json", fields); }, endings};
    fault.signsOut = status == 401;
    return fault;
}

// The groups

QList<Fault> refusals()
{
    struct Row {
        int status;
        QString service;
        QString email;
        QString code;
    };
    const auto bang = u"Bang"_s;
    const auto detail = u"Boom"_s;
    const QList<Row> rows{
        {201, ending::unreadable, bang, bang},
        {202, ending::unreadable, bang, bang},
        {203, ending::unreadable, bang, bang},
        {206, ending::unreadable, bang, bang},
        {299, ending::unreadable, bang, bang},
        {300, detail, bang, bang},
        {305, detail, bang, bang},
        {306, detail, bang, bang},
        {399, detail, bang, bang},
        {400, detail, bang, bang},
        {401, logIn, bang, invalidCode},
        {402, detail, bang, bang},
        {403, noPermission, bang, bang},
        {404, notFound, userNotFound, bang},
        {405, detail, bang, bang},
        {406, detail, bang, bang},
        {407, detail, bang, bang},
        {408, detail, bang, bang},
        {409, detail, bang, bang},
        {410, detail, bang, bang},
        {411, detail, bang, bang},
        {412, detail, bang, bang},
        {413, detail, bang, bang},
        {415, detail, bang, bang},
        {417, detail, bang, bang},
        {418, detail, bang, bang},
        {421, detail, bang, bang},
        {422, detail, bang, bang},
        {425, detail, bang, bang},
        {426, detail, bang, bang},
        {429, tooMany, bang, bang},
        {431, detail, bang, bang},
        {451, detail, bang, bang},
        {499, detail, bang, bang},
        {500, detail, bang, bang},
        {501, detail, bang, bang},
        {502, detail, bang, bang},
        {503, detail, bang, bang},
        {504, detail, bang, bang},
        {505, detail, bang, bang},
        {511, detail, bang, bang},
        {599, detail, bang, bang},
        {600, detail, bang, bang},
        {999, detail, bang, bang},
    };
    QList<Fault> all;
    for (const Row &row : rows) {
        all.append(answer(u"status %1"_s.arg(row.status), row.status, boom,
            {row.service, row.service, ending::unreadable, row.email, row.code, ending::nothing}));
    }
    const QList<std::pair<QString, QByteArray>> challenges{
        {u"a bearer token"_s, "Bearer error=\"invalid_token\""},
        {u"a password"_s, "Basic realm=\"x\""},
        {u"a digest"_s, "Digest realm=\"x\", nonce=\"n\", qop=\"auth\""},
        {u"NTLM"_s, "NTLM"},
        {u"Negotiate"_s, "Negotiate"},
        {u"what nobody knows"_s, "Odd x=\"y\""},
    };
    for (const auto &[name, challenge] : challenges) {
        all.append(answer(u"status 401 that asks for "_s + name, 401, boom,
            {logIn, logIn, ending::unreadable, u"Bang"_s, invalidCode, ending::nothing},
            {{"WWW-Authenticate", challenge}}));
        all.append(answer(u"status 407 that asks for "_s + name, 407, boom,
            {u"Boom"_s, u"Boom"_s, ending::unreadable, u"Bang"_s, u"Bang"_s, ending::nothing},
            {{"Proxy-Authenticate", challenge}}));
    }
    return all;
}

QList<Fault> repliesWithAnotherStatus()
{
    struct Row {
        int status;
        QString service;
        QString email;
        QString code;
    };
    using ending::theReply;
    const QList<Row> rows{
        {201, theReply, networkError, networkError},
        {206, theReply, networkError, networkError},
        {299, theReply, networkError, networkError},
        {300, unknownError(u"300"_s), networkError, networkError},
        {302, unknownError(u"302"_s), networkError, networkError},
        {400, unknownError(u"400"_s), networkError, networkError},
        {401, logIn, networkError, invalidCode},
        {403, noPermission, networkError, networkError},
        {404, notFound, userNotFound, networkError},
        {429, tooMany, networkError, networkError},
        {500, unknownError(u"500"_s), networkError, networkError},
        {503, unknownError(u"503"_s), networkError, networkError},
    };
    QList<Fault> all;
    for (const Row &row : rows) {
        // An upload and the update check look at no status.
        Fault fault{u"a good reply with status %1"_s.arg(row.status),
            [status = row.status](Scene &scene) { scene.route().answers(status, scene.operation.reply); },
            {row.service, row.service, theReply, row.email, row.code, theReply}};
        fault.signsOut = row.status == 401;
        all.append(fault);
    }
    const QList<Row> pages{
        {400, unknownError(u"400"_s), networkError, networkError},
        {401, logIn, networkError, invalidCode},
        {403, noPermission, networkError, networkError},
        {404, notFound, userNotFound, networkError},
        {429, tooMany, networkError, networkError},
        {500, unknownError(u"500"_s), networkError, networkError},
        {502, unknownError(u"502"_s), networkError, networkError},
        {599, unknownError(u"599"_s), networkError, networkError},
    };
    for (const Row &row : pages) {
        const Endings endings{row.service, row.service, ending::unreadable, row.email, row.code, ending::nothing};
        all.append(answer(u"an HTML page with status %1"_s.arg(row.status), row.status, "<html>Down</html>", endings));
        all.append(answer(u"nothing with status %1"_s.arg(row.status), row.status, {}, endings));
    }
    const Endings noContent{
        ending::unreadable, ending::unreadable, ending::unreadable, networkError, networkError, ending::nothing};
    all.append(answer(u"nothing with status 204"_s, 204, {}, noContent));
    const auto notModified = unknownError(u"304"_s);
    all.append(answer(u"nothing with status 304"_s, 304, {},
        {notModified, notModified, ending::unreadable, networkError, networkError, ending::nothing}));
    return all;
}

QList<Fault> refusalsInOtherForms()
{
    QList<Fault> all;
    const auto unknown = unknownError(u"500"_s);
    for (const Mutation &mutation : mutations()) {
        const bool isText = mutation.kind == Mutation::Kind::Text || mutation.kind == Mutation::Kind::Date;
        const QString text = QString::fromUtf8(mutation.json.mid(1, mutation.json.size() - 2));
        const QString service = isText ? text : unknown;
        const QString signIn = isText ? text : networkError;
        const auto without = [&](const QByteArray &field) { return mutated(boom, field, mutation); };
        all.append(answer(u"status 500 with a detail that is "_s + QString::fromUtf8(mutation.name), 500,
            without("detail"), {service, service, ending::unreadable, u"Bang"_s, u"Bang"_s, ending::nothing}));
        all.append(answer(u"status 500 with an error that is "_s + QString::fromUtf8(mutation.name), 500,
            without("error"), {u"Boom"_s, u"Boom"_s, ending::unreadable, signIn, signIn, ending::nothing}));
    }
    return all;
}

QList<Fault> hangs()
{
    return {
        {u"no reply"_s, [](Scene &scene) { scene.route().sendsRawAndHangs({}); }, failing(ending::timedOut),
            Wait::AMinute},
        {u"a request that is not read"_s, [](Scene &scene) { scene.route().stopsReading(0); },
            failing(ending::timedOut), Wait::AMinuteFromThere},
        hanging(u"silence in the status line"_s, [](const QByteArray &) { return QByteArray("HTTP/1.1 2"); }),
        hanging(
            u"silence after the status line"_s, [](const QByteArray &) { return QByteArray("HTTP/1.1 200 OK\r\n"); }),
        hanging(u"silence in the head"_s, [](const QByteArray &reply) { return whole(reply).left(30); }),
        hanging(u"silence after the head"_s, [](const QByteArray &reply) { return head(lengthOf(reply)); }),
        hanging(u"silence in the body"_s, [](const QByteArray &reply) { return whole(reply).chopped(7); }),
        hanging(u"silence before the last byte"_s, [](const QByteArray &reply) { return whole(reply).chopped(1); }),
        hanging(u"silence in a body without a length"_s, [](const QByteArray &reply) { return head({}) + reply; }),
        hanging(u"silence in a chunk's length"_s, [](const QByteArray &) { return chunked("1"); }),
        hanging(u"silence in a chunk"_s, [](const QByteArray &reply) { return chunked(chunk(reply).chopped(9)); }),
        hanging(u"silence before the last chunk"_s, [](const QByteArray &reply) { return chunked(chunk(reply)); }),
        hanging(u"silence in a packed body"_s,
            [](const QByteArray &reply) { return whole(deflated(reply), "Content-Encoding: deflate\r\n").chopped(5); }),
        hanging(u"silence after 100 Continue"_s, [](const QByteArray &) { return head({}, "100 Continue"); }),
        {u"a refusal that never ends"_s,
            [](Scene &scene) { scene.route().sendsRawAndHangs(head(lengthOf(boom), "401 Who") + half(boom)); },
            failing(ending::timedOut), Wait::AMinuteFromThere},
        {u"a reply that drips on and on"_s,
            [](Scene &scene) {
                const QByteArray padded = scene.operation.reply + QByteArray(20'000, ' ');
                scene.route().dripsRaw(200, whole(padded));
            },
            failing(ending::tookTooLong), Wait::TenMinutes},
        {u"chunks that drip on and on"_s,
            [](Scene &scene) {
                QByteArray chunks;
                for (int i = 0; i < 1000; ++i) {
                    chunks += chunk("                ");
                }
                scene.route().dripsRaw(200, chunked(chunks));
            },
            failing(ending::tookTooLong), Wait::TenMinutes},
        {u"a reply that drips for a while"_s,
            [](Scene &scene) {
                const QByteArray reply = whole(scene.operation.reply + QByteArray(1000, ' '));
                scene.route().dripsRaw(int(reply.size() / 5), reply);
            },
            given(), Wait::AWhile},
    };
}

QList<Fault> cuts()
{
    QList<Fault> all{
        raw(
            u"cut before the reply"_s, [](const QByteArray &) { return QByteArray(); }, brokenOff()),
        raw(
            u"cut after the first byte"_s, [](const QByteArray &) { return QByteArray("H"); }, brokenOff()),
        raw(
            u"cut before the status"_s, [](const QByteArray &) { return QByteArray("HTTP/1.1 "); }, brokenOff()),
        raw(
            u"cut in the status"_s, [](const QByteArray &) { return QByteArray("HTTP/1.1 20"); }, brokenOff()),
        raw(
            u"cut after the status"_s, [](const QByteArray &) { return QByteArray("HTTP/1.1 200 OK"); }, brokenOff()),
        raw(
            u"cut after the status line"_s, [](const QByteArray &) { return QByteArray("HTTP/1.1 200 OK\r\n"); },
            brokenOff()),
        raw(
            u"cut in a field of the head"_s, [](const QByteArray &reply) { return whole(reply).left(25); },
            brokenOff()),
        raw(
            u"cut before the head's empty line"_s,
            [](const QByteArray &reply) { return head(lengthOf(reply)).chopped(2); }, brokenOff()),
        raw(
            u"cut in the head's empty line"_s, [](const QByteArray &reply) { return head(lengthOf(reply)).chopped(1); },
            brokenOff()),
        raw(
            u"cut after the head"_s, [](const QByteArray &reply) { return head(lengthOf(reply)); }, brokenOff()),
        raw(
            u"cut after the body's first byte"_s,
            [](const QByteArray &reply) { return head(lengthOf(reply)) + reply.left(1); }, brokenOff()),
        raw(
            u"cut in the body"_s, [](const QByteArray &reply) { return head(lengthOf(reply)) + half(reply); },
            brokenOff()),
        raw(
            u"cut before the body's last byte"_s, [](const QByteArray &reply) { return whole(reply).chopped(1); },
            brokenOff()),
        raw(
            u"cut in a body without a length"_s, [](const QByteArray &reply) { return head({}) + half(reply); },
            unreadable()),
        raw(
            u"cut in the body of a refusal"_s,
            [](const QByteArray &) { return head(lengthOf(boom), "401 Who") + half(boom); }, brokenOff()),
        raw(
            u"cut after 100 Continue"_s, [](const QByteArray &) { return head({}, "100 Continue"); }, brokenOff()),
        {u"cut in the request"_s, [](Scene &scene) { scene.route().cutsRequest(0); }, brokenOff()},
    };
    const QList<std::pair<QString, Bytes>> resets{
        {u"reset before the reply"_s, [](const QByteArray &) { return QByteArray(); }},
        {u"reset in the head"_s, [](const QByteArray &reply) { return whole(reply).left(25); }},
        {u"reset in the body"_s, [](const QByteArray &reply) { return head(lengthOf(reply)) + half(reply); }},
    };
    for (const auto &[name, bytes] : resets) {
        all.append({name, [bytes](Scene &scene) { scene.route().resets(bytes(scene.operation.reply)); }, brokenOff()});
    }
    return all;
}

QList<Fault> chunks()
{
    const auto inBytes = [](const QByteArray &reply) {
        QByteArray bytes;
        for (const char c : reply) {
            bytes += chunk(QByteArray(1, c));
        }
        return chunked(bytes + lastChunk);
    };
    return {
        raw(
            u"one chunk"_s, [](const QByteArray &reply) { return chunked(chunk(reply) + lastChunk); }, given()),
        raw(u"a chunk for each byte"_s, inBytes, given()),
        raw(
            u"chunks with extensions and a trailer"_s,
            [](const QByteArray &reply) {
                return chunked(chunk(half(reply), QByteArray::number(half(reply).size(), 16) + ";a=b")
                    + chunk(otherHalf(reply)) + "0\r\nX-Trailer: 1\r\n\r\n");
            },
            given()),
        raw(
            u"no chunk at all"_s, [](const QByteArray &) { return chunked({}); }, brokenOff()),
        raw(
            u"an empty chunked body"_s, [](const QByteArray &) { return chunked(lastChunk); }, brokenOff()),
        raw(
            u"no last chunk"_s, [](const QByteArray &reply) { return chunked(chunk(reply)); }, brokenOff()),
        raw(
            u"a chunk cut in its length"_s, [](const QByteArray &) { return chunked("1"); }, brokenOff()),
        raw(
            u"a chunk cut in its content"_s, [](const QByteArray &reply) { return chunked(chunk(reply).chopped(9)); },
            brokenOff()),
        raw(
            u"a chunk shorter than told"_s,
            [](const QByteArray &reply) {
                return chunked(chunk(reply, QByteArray::number(reply.size() + 50, 16)) + lastChunk);
            },
            brokenOff()),
        raw(
            u"a chunk longer than told"_s,
            [](const QByteArray &reply) {
                return chunked(chunk(reply, QByteArray::number(reply.size() / 2, 16)) + lastChunk);
            },
            unreadable()),
        raw(
            u"a chunk length that is a word"_s,
            [](const QByteArray &reply) { return chunked(chunk(reply, "ZZ") + lastChunk); }, brokenOff()),
        raw(
            u"a chunk length below zero"_s,
            [](const QByteArray &reply) { return chunked(chunk(reply, "-5") + lastChunk); }, brokenOff()),
        raw(
            u"a chunk length of more than 64 bits"_s,
            [](const QByteArray &reply) { return chunked(chunk(reply, "10000000000000005") + lastChunk); },
            brokenOff()),
        raw(
            u"a chunk length of nearly 64 bits"_s,
            [](const QByteArray &reply) { return chunked(chunk(reply, "7fffffffffffffff") + lastChunk); }, brokenOff()),
        raw(
            u"a bad chunk length after a good chunk"_s,
            [](const QByteArray &reply) {
                return chunked(chunk(half(reply)) + chunk(otherHalf(reply), "ZZ") + lastChunk);
            },
            unreadable()),
        raw(
            u"no chunk where chunks are told"_s, [](const QByteArray &reply) { return chunked(reply); }, brokenOff()),
    };
}

QList<Fault> lengths()
{
    const auto told = [](const QByteArray &fields) {
        return [fields](const QByteArray &reply) { return head(fields) + reply; };
    };
    return {
        raw(u"a body up to the end of the connection"_s, told({}), given()),
        raw(
            u"a length of one byte more"_s, [](const QByteArray &reply) { return head(lengthOf(reply + ' ')) + reply; },
            brokenOff()),
        raw(
            u"a length of one byte less"_s,
            [](const QByteArray &reply) { return head(lengthOf(reply.chopped(1))) + reply; }, unreadable()),
        raw(
            u"more bytes than told"_s, [](const QByteArray &reply) { return whole(reply) + whole(boom); }, given()),
        raw(u"a length of zero"_s, told("Content-Length: 0\r\n"), unreadable()),
        raw(u"a length of nearly 64 bits"_s, told("Content-Length: 9223372036854775807\r\n"), brokenOff()),
        raw(
            u"chunks and a length"_s,
            [](const QByteArray &reply) {
                return head("Content-Length: 5\r\nTransfer-Encoding: chunked\r\n") + chunk(reply) + lastChunk;
            },
            given()),
    };
}

QList<Fault> encodings()
{
    const auto packed = [](const QByteArray &encoding, const Bytes &bytes) {
        return [=](const QByteArray &reply) { return whole(bytes(reply), "Content-Encoding: " + encoding + "\r\n"); };
    };
    const auto asItIs = [](const QByteArray &reply) { return reply; };
    const auto broken = [](const QByteArray &reply) {
        QByteArray bytes = deflated(reply);
        bytes[bytes.size() / 2] = char(bytes[bytes.size() / 2] ^ 0xff);
        bytes[bytes.size() / 2 + 1] = char(bytes[bytes.size() / 2 + 1] ^ 0xff);
        return bytes;
    };
    return {
        raw(u"a packed reply"_s, packed("deflate", deflated), given()),
        raw(u"an encoding that nobody knows"_s, packed("x-odd", asItIs), given()),
        raw(u"gzip that is none"_s, packed("gzip", asItIs), brokenOff()),
        raw(u"deflate that is none"_s, packed("deflate", asItIs), brokenOff()),
        raw(u"gzip's first bytes alone"_s,
            packed("gzip", [](const QByteArray &) { return QByteArray::fromHex("1f8b0800000000000203"); }),
            unreadable()),
        raw(u"broken packing"_s, packed("deflate", broken), brokenOff()),
        raw(u"half of the packing"_s, packed("deflate", [](const QByteArray &reply) { return half(deflated(reply)); }),
            unreadable()),
        raw(u"packed by one way and told another"_s, packed("gzip", deflated), given()),
        raw(u"a refusal that cannot be unpacked"_s,
            [](const QByteArray &) { return head(lengthOf(boom) + "Content-Encoding: gzip\r\n", "500 No") + boom; },
            {unknownError(u"500"_s), unknownError(u"500"_s), ending::unreadable, networkError, networkError,
                ending::nothing}),
    };
}

QList<Fault> heads()
{
    const auto fields = [](const QByteArray &fields) {
        return [fields](const QByteArray &reply) { return whole(reply, fields); };
    };
    const auto startsWith = [](const QByteArray &line) {
        return [line](const QByteArray &reply) { return line + lengthOf(reply) + "\r\n" + reply; };
    };
    return {
        raw(
            u"HTTP/1.0"_s, [](const QByteArray &reply) { return "HTTP/1.0 200 OK\r\n\r\n" + reply; }, given()),
        raw(u"no reason phrase"_s, startsWith("HTTP/1.1 200\r\n"), given()),
        raw(
            u"100 Continue before the reply"_s,
            [](const QByteArray &reply) { return head({}, "100 Continue") + whole(reply); }, given()),
        // The library passes over no interim reply but 100, and what it takes for the reply then is none.
        raw(
            u"102 Processing before the reply"_s,
            [](const QByteArray &reply) { return head({}, "102 Processing") + whole(reply); }, brokenOff()),
        raw(
            u"early hints before the reply"_s,
            [](const QByteArray &reply) {
                return head("Link: </style.css>; rel=preload\r\n", "103 Early Hints") + whole(reply);
            },
            brokenOff()),
        raw(
            u"a hundred times 100 Continue"_s,
            [](const QByteArray &reply) { return head({}, "100 Continue").repeated(100) + whole(reply); }, given()),
        raw(
            u"fields in capitals"_s, [](const QByteArray &reply) { return head(lengthOf(reply).toUpper()) + reply; },
            given()),
        raw(u"a cookie"_s, fields("Set-Cookie: a=b\r\n"), given()),
        raw(u"the wish for HTTP/2"_s, fields("Upgrade: h2c\r\nConnection: Upgrade\r\n"), given()),
        raw(u"the wish for TLS"_s, fields("Strict-Transport-Security: max-age=1000\r\nAlt-Svc: h2=\":443\"\r\n"),
            given()),
        raw(u"a wish to look elsewhere"_s,
            fields("Refresh: 0; url=/there\r\nContent-Location: /there\r\nLocation: /there\r\n"), given()),
        raw(u"a thousand fields"_s, fields(QByteArray("X-Field: value\r\n").repeated(1000)), given()),
        raw(
            u"another protocol"_s, [](const QByteArray &) { return QByteArray("SSH-2.0-OpenSSH_9.2\r\n"); },
            brokenOff()),
        raw(
            u"the body alone"_s, [](const QByteArray &reply) { return reply; }, brokenOff()),
        raw(u"a status that is a word"_s, startsWith("HTTP/1.1 good OK\r\n"), brokenOff()),
        raw(u"a status below zero"_s, startsWith("HTTP/1.1 -200 OK\r\n"), brokenOff()),
        raw(u"a status of nothing"_s, startsWith("HTTP/1.1  OK\r\n"), brokenOff()),
        raw(
            u"noise"_s,
            [](const QByteArray &) {
                return QByteArray::fromHex("00ff10807fe2000a0d0a0d0a") + QByteArray(500, '\xee');
            },
            brokenOff()),
    };
}

QList<Fault> oddJson()
{
    const auto text = [](const QByteArray &json) { return [json](const QByteArray &) { return json; }; };
    const auto unknown = [](const QByteArray &value) {
        return [value](const QByteArray &reply) { return withUnknownField(reply, value); };
    };
    return {
        // What is told in another way and can be read.
        body(
            u"blanks around the reply"_s, [](const QByteArray &reply) { return " \r\n\t" + reply + "\n  "; }, given()),
        body(u"a field that nobody knows"_s, unknown(R"({"a": [1.5, null, "\u00e9"]})"), given()),
        body(u"an integer beyond 64 bits in such a field"_s, unknown("123456789012345678901234567890"), given()),
        body(u"a thousand levels in such a field"_s, unknown(QByteArray(1000, '[') + QByteArray(1000, ']')), given()),
        body(
            u"the same reply with each slash escaped"_s,
            [](const QByteArray &reply) { return QByteArray(reply).replace('/', "\\/"); }, given()),
        // What cannot.
        body(u"an empty body"_s, text({}), unreadable()),
        body(u"blanks"_s, text("   \n"), unreadable()),
        body(u"an HTML page"_s, text("<html>Welcome to this hotel's network</html>"), unreadable()),
        body(u"half of the reply"_s, half, unreadable()),
        body(
            u"the reply without its end"_s, [](const QByteArray &reply) { return reply.chopped(1); }, unreadable()),
        body(
            u"a comma at the end"_s, [](const QByteArray &reply) { return reply.chopped(1) + ",}"; }, unreadable()),
        body(
            u"a word after the reply"_s, [](const QByteArray &reply) { return reply + " x"; }, unreadable()),
        body(
            u"two replies"_s, [](const QByteArray &reply) { return reply + reply; }, unreadable()),
        body(
            u"the reply in a list"_s, [](const QByteArray &reply) { return '[' + reply + ']'; }, unreadable()),
        body(
            u"the reply as a text"_s,
            [](const QByteArray &reply) {
                return '"' + QByteArray(reply).replace('"', "\\\"").replace('\n', " ") + '"';
            },
            unreadable()),
        body(
            u"NUL after the reply"_s, [](const QByteArray &reply) { return reply + '\0'; }, unreadable()),
        body(
            u"a byte order mark"_s, [](const QByteArray &reply) { return "\xef\xbb\xbf" + reply; }, unreadable()),
        body(
            u"UTF-16"_s,
            [](const QByteArray &reply) {
                const QString text = QString::fromUtf8(reply);
                return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
            },
            unreadable()),
        body(
            u"single quotes"_s, [](const QByteArray &reply) { return QByteArray(reply).replace('"', '\''); },
            unreadable()),
        body(
            u"a comment"_s, [](const QByteArray &reply) { return "/* all is well */" + reply; }, unreadable()),
        body(
            u"a key without quotes"_s, [](const QByteArray &reply) { return "{x: 1, " + reply.mid(1); }, unreadable()),
        body(u"a line break in a text"_s, unknown("\"a\nb\""), unreadable()),
        body(u"NUL in a text"_s, unknown(QByteArray("\"a\0b\"", 5)), unreadable()),
        body(u"bytes that are no UTF-8"_s, unknown("\"\xff\xfe\""), unreadable()),
        body(u"UTF-8 that is longer than need be"_s, unknown("\"\xc0\xaf\""), unreadable()),
        body(u"half of a surrogate pair"_s, unknown(R"("\ud800")"), unreadable()),
        body(u"an escape that nobody knows"_s, unknown(R"("\x41")"), unreadable()),
        body(u"a text without its end"_s, unknown(R"("a)"), unreadable()),
        body(u"a number that begins with zero"_s, unknown("012"), unreadable()),
        body(u"a number that begins with a point"_s, unknown(".5"), unreadable()),
        body(u"a number that ends with a point"_s, unknown("5."), unreadable()),
        body(u"a number beyond the range of a double"_s, unknown("1e400"), unreadable()),
        body(u"not a number"_s, unknown("NaN"), unreadable()),
        body(u"a word"_s, unknown("nil"), unreadable()),
        body(u"two thousand levels"_s, unknown(QByteArray(2000, '[') + QByteArray(2000, ']')), unreadable()),
        body(u"two hundred thousand levels"_s, unknown(QByteArray(200'000, '[')), unreadable()),
    };
}

QList<Fault> redirections()
{
    using Location = std::function<QByteArray(Scene &)>;
    // `Moved` and `Away` is what callers get that do not go where they are sent.
    const QByteArray moved = R"({"detail": "Moved", "error": "Away"})";
    const Endings stays{u"Moved"_s, u"Moved"_s, ending::unreadable, u"Away"_s, u"Away"_s, ending::nothing};
    const auto followedTo = [stays](const QString &ending) {
        Endings endings = stays;
        endings.get = ending;
        endings.update = ending == ending::theReply ? ending : ending::nothing;
        return endings;
    };
    const Endings follows = followedTo(ending::theReply);
    const auto redirected = [moved](const QString &name, int status, const Location &location, const Endings &endings,
                                Requests ofAGet) {
        Fault fault{name,
            [=](Scene &scene) {
                // Below the paths that a redirection leads to there is the reply.
                scene.world.service.on("GET /").answers(200, scene.operation.reply);
                scene.other.on("GET /").answers(200, scene.operation.reply);
                scene.route().answers(status, moved, "application/json", {{"Location", location(scene)}});
            },
            endings};
        fault.ofAGet = ofAGet;
        return fault;
    };
    const auto to = [](const QByteArray &location) { return [location](Scene &) { return location; }; };
    const auto toOther = [](Scene &scene) { return scene.other.origin().toUtf8() + "/there"; };

    QList<Fault> all;
    for (const int status : {301, 302, 303, 307, 308}) {
        const auto name = [status](const QString &where) { return u"%1 to "_s.arg(status) + where; };
        all.append(redirected(name(u"another path"_s), status, to("/there"), follows, {2, 0}));
        all.append(redirected(name(u"another origin"_s), status, toOther, follows, {1, 1}));
        all.append(redirected(name(u"itself"_s), status,
            [](Scene &scene) { return scene.operation.route.split(' ').last(); }, stays, {11, 0}));
        all.append(redirected(name(u"nowhere"_s), status, to({}), stays, {1, 0}));
    }
    for (const int status : {201, 300, 304, 305, 306, 399}) {
        if (status == 201) {
            // A reply like any other, which happens to tell a place.
            all.append(redirected(u"201 with a place"_s, status, to("/there"),
                {ending::unreadable, ending::unreadable, ending::unreadable, u"Away"_s, u"Away"_s, ending::nothing},
                {1, 0}));
        } else if (status == 304) {
            const auto notModified = unknownError(u"304"_s);
            all.append(answer(u"304 with a place"_s, 304, {},
                {notModified, notModified, ending::unreadable, networkError, networkError, ending::nothing},
                {{"Location", "/there"}}));
        } else {
            all.append(redirected(u"%1 with a place"_s.arg(status), status, to("/there"), stays, {1, 0}));
        }
    }
    const auto here = [](const QByteArray &start, const QByteArray &end = "/there") {
        return
            [=](Scene &scene) { return start + "127.0.0.1:" + QByteArray::number(scene.world.service.port()) + end; };
    };
    all += {
        redirected(u"to a path beside"_s, 302, to("there"), follows, {2, 0}),
        redirected(u"to a path above"_s, 302, to("../../../there"), follows, {2, 0}),
        redirected(u"to an address without a scheme"_s, 302, here("//"), follows, {2, 0}),
        redirected(u"to the whole address"_s, 302, here("http://"), follows, {2, 0}),
        redirected(u"to an address in capitals"_s, 302, here("HTTP://"), follows, {2, 0}),
        redirected(u"to an address with a fragment"_s, 302, here("http://", "/there#part"), follows, {2, 0}),
        redirected(u"to an address with a name and a password"_s, 302, here("http://u:p@"), follows, {2, 0}),
        redirected(u"to another name of the same machine"_s, 302,
            [](Scene &scene) { return "http://localhost:" + QByteArray::number(scene.other.port()) + "/there"; },
            follows, {1, 1}),
    };
    const QList<std::pair<QString, QByteArray>> badPlaces{
        {u"a file"_s, "file:///etc/hostname"},
        {u"data"_s, "data:application/json,{}"},
        {u"another protocol"_s, "ftp://127.0.0.1/there"},
        {u"a script"_s, "javascript:alert(1)"},
        {u"the scheme of the program"_s, "com.quillmere.studio://callback#access_token=evil"},
        {u"no host"_s, "http:///there"},
        {u"nothing but a scheme"_s, "http://"},
        {u"a port beyond all ports"_s, "http://127.0.0.1:99999/there"},
        {u"half an address of IPv6"_s, "http://[::1/there"},
        {u"a host with a blank"_s, "http://exa mple/there"},
    };
    for (const auto &[name, place] : badPlaces) {
        all.append(redirected(u"to "_s + name, 302, to(place), stays, {1, 0}));
    }

    // More than one step.
    const auto chain = [&](int steps, const Endings &endings) {
        Fault fault{u"%1 redirections"_s.arg(steps),
            [=](Scene &scene) {
                scene.world.service.on("GET /").answers(200, scene.operation.reply);
                const auto step = [](int i) { return "/step/" + QByteArray::number(i); };
                const auto leads = [moved](const StandIn::Route &route, const QByteArray &where) {
                    route.answers(302, moved, "application/json", {{"Location", where}});
                };
                leads(scene.route(), step(1));
                for (int i = 1; i < steps; ++i) {
                    leads(scene.world.service.on("GET " + step(i)), step(i + 1));
                }
            },
            endings};
        fault.ofAGet = {11, 0};
        return fault;
    };
    all.append(chain(10, follows));
    all.append(chain(11, stays));

    // What happens at the other end, by the same rules.
    const auto elsewhere = [&](const QString &name, const std::function<void(Scene &, const StandIn::Route &)> &arrange,
                               const Endings &endings, Requests ofAGet) {
        Fault fault{name,
            [=](Scene &scene) {
                scene.route().answers(302, moved, "application/json", {{"Location", toOther(scene)}});
                arrange(scene, scene.other.on("GET /there"));
            },
            endings};
        fault.ofAGet = ofAGet;
        return fault;
    };
    all += {
        elsewhere(u"elsewhere and back"_s,
            [](Scene &scene, const StandIn::Route &there) {
                scene.world.service.on("GET /back").answers(200, scene.operation.reply);
                there.redirects(302, scene.world.service.origin().toUtf8() + "/back");
            },
            follows, {2, 1}),
        elsewhere(u"elsewhere to a refusal"_s, [](Scene &, const StandIn::Route &there) { there.answers(403, boom); },
            followedTo(noPermission), {1, 1}),
        elsewhere(u"elsewhere to a cut"_s, [](Scene &, const StandIn::Route &there) { there.closesWithoutReply(); },
            followedTo(ending::brokenOff), {1, 1}),
        elsewhere(u"elsewhere to half a reply"_s,
            [](Scene &scene, const StandIn::Route &there) { there.answers(200, half(scene.operation.reply)); },
            followedTo(ending::unreadable), {1, 1}),
    };
    Fault refused = redirected(u"to a port where nobody listens"_s, 302,
        [](Scene &scene) { return originWhereNobodyListens(scene).toUtf8() + "/there"; }, followedTo(ending::brokenOff),
        {1, 0});
    all.append(refused);
    return all;
}

const Certificate &ownCertificate()
{
    static const Certificate certificate = Certificate::madeFor(u"IP:127.0.0.1"_s);
    return certificate;
}

const Certificate &certificateOfSomebodyElse()
{
    static const Certificate certificate = Certificate::madeFor(u"DNS:somebody.example"_s);
    return certificate;
}

QList<Fault> tls()
{
    const QByteArray moved = R"({"detail": "Moved", "error": "Away"})";
    const Endings stays{u"Moved"_s, u"Moved"_s, ending::unreadable, u"Away"_s, u"Away"_s, ending::nothing};
    const auto behindADoor = [](Scene &scene, const Certificate &certificate) {
        scene.door = std::make_unique<TlsDoor>(scene.world.service, certificate);
        scene.asksAt(scene.door->origin());
        scene.route().answers(200, scene.operation.reply);
    };
    const auto redirects = [moved](Scene &scene, const QString &where) {
        scene.route().answers(302, moved, "application/json", {{"Location", where.toUtf8()}});
        scene.world.service.on("GET /there").answers(200, scene.operation.reply);
        scene.other.on("GET /there").answers(200, scene.operation.reply);
    };
    const auto sent = [=](const QString &name, const Bytes &bytes, const Endings &endings) {
        return Fault{name,
            [=](Scene &scene) {
                scene.trust = std::make_unique<Trust>(ownCertificate());
                behindADoor(scene, ownCertificate());
                scene.route().sendsRaw(bytes(scene.operation.reply));
            },
            endings};
    };
    QList<Fault> all{
        {u"TLS"_s,
            [=](Scene &scene) {
                scene.trust = std::make_unique<Trust>(ownCertificate());
                behindADoor(scene, ownCertificate());
            },
            given()},
        sent(
            u"TLS and a body up to the end of the connection"_s,
            [](const QByteArray &reply) { return head({}) + reply; }, given()),
        sent(
            u"TLS cut before the reply"_s, [](const QByteArray &) { return QByteArray(); }, brokenOff()),
        sent(
            u"TLS cut in the head"_s, [](const QByteArray &reply) { return whole(reply).left(25); }, brokenOff()),
        sent(
            u"TLS cut in the body"_s, [](const QByteArray &reply) { return whole(reply).chopped(7); }, brokenOff()),
        sent(
            u"TLS cut before the last chunk"_s, [](const QByteArray &reply) { return chunked(chunk(reply)); },
            brokenOff()),
        {u"TLS with a certificate that nobody vouches for"_s,
            [=](Scene &scene) { behindADoor(scene, ownCertificate()); }, brokenOff(), Wait::No, {0, 0}, {0, 0}},
        {u"TLS with somebody else's certificate"_s,
            [=](Scene &scene) {
                scene.trust = std::make_unique<Trust>(certificateOfSomebodyElse());
                behindADoor(scene, certificateOfSomebodyElse());
            },
            brokenOff(), Wait::No, {0, 0}, {0, 0}},
        {u"no TLS where it is told"_s,
            [](Scene &scene) {
                scene.stranger = std::make_unique<QTcpServer>();
                scene.stranger->listen(QHostAddress::LocalHost);
                QObject::connect(scene.stranger.get(), &QTcpServer::newConnection, scene.stranger.get(), [&scene] {
                    ++scene.strangersCallers;
                    QTcpSocket *socket = scene.stranger->nextPendingConnection();
                    socket->write("HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n");
                    socket->disconnectFromHost();
                });
                scene.asksAt(u"https://127.0.0.1:%1"_s.arg(scene.stranger->serverPort()));
            },
            brokenOff(), Wait::No, {0, 0}, {0, 0}},
        {u"TLS that is never agreed on"_s,
            [](Scene &scene) {
                scene.stranger = std::make_unique<QTcpServer>();
                scene.stranger->listen(QHostAddress::LocalHost);
                QObject::connect(scene.stranger.get(), &QTcpServer::newConnection, scene.stranger.get(),
                    [&scene] { ++scene.strangersCallers; });
                scene.asksAt(u"https://127.0.0.1:%1"_s.arg(scene.stranger->serverPort()));
            },
            failing(ending::timedOut), Wait::AMinuteFromThere, {0, 0}, {0, 0}},
        {u"nobody listens"_s, [](Scene &scene) { scene.asksAt(originWhereNobodyListens(scene)); }, brokenOff(),
            Wait::No, {0, 0}, {0, 0}},
        {u"from TLS to another path"_s,
            [=](Scene &scene) {
                scene.trust = std::make_unique<Trust>(ownCertificate());
                behindADoor(scene, ownCertificate());
                redirects(scene, u"/there"_s);
            },
            {ending::theReply, u"Moved"_s, ending::unreadable, u"Away"_s, u"Away"_s, ending::theReply}, Wait::No,
            {2, 0}},
        {u"from TLS to no TLS"_s,
            [=](Scene &scene) {
                scene.trust = std::make_unique<Trust>(ownCertificate());
                behindADoor(scene, ownCertificate());
                redirects(scene, scene.world.service.origin() + u"/there"_s);
            },
            stays},
        {u"from TLS to no TLS elsewhere"_s,
            [=](Scene &scene) {
                scene.trust = std::make_unique<Trust>(ownCertificate());
                behindADoor(scene, ownCertificate());
                redirects(scene, scene.other.origin() + u"/there"_s);
            },
            stays},
        {u"from no TLS to TLS"_s,
            [=](Scene &scene) {
                scene.trust = std::make_unique<Trust>(ownCertificate());
                scene.door = std::make_unique<TlsDoor>(scene.other, ownCertificate());
                redirects(scene, scene.door->origin() + u"/there"_s);
            },
            {ending::theReply, u"Moved"_s, ending::unreadable, u"Away"_s, u"Away"_s, ending::theReply}, Wait::No,
            {1, 1}},
        {u"from no TLS to TLS that nobody vouches for"_s,
            [=](Scene &scene) {
                scene.door = std::make_unique<TlsDoor>(scene.other, ownCertificate());
                redirects(scene, scene.door->origin() + u"/there"_s);
            },
            {ending::brokenOff, u"Moved"_s, ending::unreadable, u"Away"_s, u"Away"_s, ending::nothing}},
    };
    return all;
}

QList<Fault> sizes()
{
    const QByteArray bomb = deflated(QByteArray(200'000'000, ' '));
    QList<Fault> all{
        {u"a body of one byte too many"_s,
            [](Scene &scene) { scene.route().sendsHugeBody(HttpSession::sizeLimit + 1); }, failing(ending::tooLarge)},
        {u"a body without end"_s, [](Scene &scene) { scene.route().sendsEndlessBody(); }, failing(ending::tooLarge)},
        {u"a body that unpacks to too much"_s,
            [bomb](Scene &scene) {
                scene.route().answers(200, bomb, "application/json", {{"Content-Encoding", "deflate"}});
            },
            brokenOff()},
    };
    // The library says nothing of a head before it has the whole of it.
    const auto endless = [&](const QString &name, const QByteArray &lead, const QByteArray &block) {
        all.append({name, [=](Scene &scene) { scene.route().repeatsRaw(lead, block); }, failing(ending::timedOut),
            Wait::AMinuteFromThere});
    };
    endless(u"a status line without end"_s, "HTTP/1.1 200 ", QByteArray(10'000, 'K'));
    endless(u"a field of the head without end"_s, "HTTP/1.1 200 OK\r\nX-Field: ", QByteArray(10'000, 'x'));
    endless(u"a head without end"_s, "HTTP/1.1 200 OK\r\n", QByteArray("X-Field: value\r\n").repeated(1000));
    endless(u"a chunk length without end"_s, chunked({}), QByteArray(10'000, '0'));
    endless(u"100 Continue without end"_s, {}, head({}, "100 Continue").repeated(1000));
    for (Fault &fault : all) {
        fault.isLarge = true;
    }
    return all;
}

} // namespace

Scene::Scene(const Operation &theOperation) : operation(theOperation), token(world.isSignedIn())
{
    if (!other.listen()) {
        qFatal("The other origin has no port: %s", qPrintable(other.errorString()));
    }
    world.environment.hosts.signUpHost = u"https://signup.example"_s;
    QObject::connect(&world.service, &StandIn::requestBegins, &world.service, [this] { ++begun; });
    QObject::connect(&other, &StandIn::requestBegins, &other, [this] { ++begunElsewhere; });
}

void Scene::asksAt(const QString &origin)
{
    asksElsewhere = true;
    world.environment.hosts.apiEndpoint = origin;
    world.environment.hosts.loginHost = origin;
    world.environment.hosts.downloadHost = origin;
}

const QString &Endings::of(Family family) const
{
    switch (family) {
    case Family::Get:
        return get;
    case Family::Post:
        return post;
    case Family::Upload:
        return upload;
    case Family::Email:
        return email;
    case Family::Code:
        return code;
    case Family::Update:
        return update;
    }
    Q_UNREACHABLE();
}

const QList<Fault> &faults()
{
    static const QList<Fault> all = refusals() + repliesWithAnotherStatus() + refusalsInOtherForms() + hangs() + cuts()
        + chunks() + lengths() + encodings() + heads() + oddJson() + redirections() + tls() + sizes();
    return all;
}

} // namespace quillmere::testing
