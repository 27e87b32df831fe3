#include "tests/standin/WireClient.h"

#include "standin/StandIn.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QByteArray Boundary = "6F9619FF-8B86-D011-B42D-00CF4FC964FF";
const QString Secret = u"JBSWY3DPEHPK3PXP"_s;

// As much of the schema language as the description uses. A keyword that it does not know is an error too, so that the
// description cannot say what nobody checks.
class SchemaChecker {
public:
    explicit SchemaChecker(const QJsonObject &description)
        : m_schemas(description[u"components"][u"schemas"].toObject())
    {
    }

    // What is wrong with the value, each with its place; empty when nothing is.
    QStringList check(const QJsonValue &value, const QJsonObject &schema, const QString &place = u"$"_s) const
    {
        if (schema.contains(u"$ref"_s)) {
            const QString name = schema[u"$ref"].toString().section(u'/', -1);
            if (!m_schemas.contains(name)) {
                return {place + u": no schema "_s + name};
            }
            return check(value, m_schemas[name].toObject(), place);
        }
        static const QSet<QString> Keywords{u"type"_s, u"description"_s, u"required"_s, u"properties"_s, u"items"_s,
            u"additionalProperties"_s, u"nullable"_s, u"enum"_s, u"format"_s};
        const QStringList keys = schema.keys();
        for (const QString &key : keys) {
            if (!Keywords.contains(key)) {
                return {place + u": unknown keyword "_s + key};
            }
        }
        if (value.isNull() && schema[u"nullable"].toBool()) {
            return {};
        }
        const QString type = schema[u"type"].toString();
        if (!type.isEmpty() && !hasType(value, type)) {
            return {place + u" is no "_s + type};
        }
        QStringList wrong;
        if (schema.contains(u"enum"_s) && !schema[u"enum"].toArray().contains(value)) {
            wrong += place + u" has a value that is not listed"_s;
        }
        if (schema[u"format"] == u"date-time"_s && !isDateTime(value.toString())) {
            wrong += place + u" is no date-time"_s;
        }
        if (type == u"array") {
            wrong += checkItems(value.toArray(), schema[u"items"].toObject(), place);
        }
        if (type == u"object") {
            wrong += checkFields(value.toObject(), schema, place);
        }
        return wrong;
    }

private:
    static bool hasType(const QJsonValue &value, const QString &type)
    {
        if (type == u"string") {
            return value.isString();
        }
        if (type == u"boolean") {
            return value.isBool();
        }
        if (type == u"array") {
            return value.isArray();
        }
        if (type == u"object") {
            return value.isObject();
        }
        if (type == u"number") {
            return value.isDouble();
        }
        return type == u"integer" && value.isDouble() && std::trunc(value.toDouble()) == value.toDouble();
    }

    // RFC 3339 with whole seconds, which is the only form that the application takes.
    static bool isDateTime(const QString &text)
    {
        static const QRegularExpression Form(u"\\A\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d(Z|[+-]\\d\\d:\\d\\d)\\z"_s);
        return Form.match(text).hasMatch() && QDateTime::fromString(text, Qt::ISODate).isValid();
    }

    QStringList checkItems(const QJsonArray &array, const QJsonObject &items, const QString &place) const
    {
        QStringList wrong;
        for (qsizetype i = 0; i < array.size(); ++i) {
            wrong += check(array[i], items, u"%1[%2]"_s.arg(place).arg(i));
        }
        return wrong;
    }

    QStringList checkFields(const QJsonObject &object, const QJsonObject &schema, const QString &place) const
    {
        QStringList wrong;
        for (const QJsonValue &name : schema[u"required"].toArray()) {
            if (!object.contains(name.toString())) {
                wrong += place + u" lacks "_s + name.toString();
            }
        }
        const QJsonObject properties = schema[u"properties"].toObject();
        const QJsonValue others = schema[u"additionalProperties"];
        for (auto it = object.begin(); it != object.end(); ++it) {
            const QString at = place + u'.' + it.key();
            if (properties.contains(it.key())) {
                wrong += check(*it, properties[it.key()].toObject(), at);
            } else if (others.isObject()) {
                wrong += check(*it, others.toObject(), at);
            } else if (others.isBool() && !others.toBool()) {
                wrong += at + u" is not described"_s;
            }
        }
        return wrong;
    }

    QJsonObject m_schemas;
};

} // namespace

class tst_ServiceDescription : public QObject {
    Q_OBJECT

private:
    QJsonObject m_description;
    std::unique_ptr<StandIn> m_service;
    QSet<QString> m_seen; //< "METHOD /path/{id} STATUS"

    QStringList checkValue(const QByteArray &json, const QByteArray &schema) const
    {
        const QJsonValue value = QJsonDocument::fromJson('[' + json + ']')[0];
        return SchemaChecker(m_description).check(value, QJsonDocument::fromJson(schema).object());
    }

    // The described path that a request's path falls under; empty when there is none.
    QString templateOf(const QString &path) const
    {
        static const QRegularExpression Parameter(u"\\\\\\{\\w+\\\\\\}"_s);
        const QStringList templates = m_description[u"paths"].toObject().keys();
        for (const QString &candidate : templates) {
            const QString pattern = QRegularExpression::escape(candidate).replace(Parameter, u"[^/]+"_s);
            if (QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(path).hasMatch()) {
                return candidate;
            }
        }
        return {};
    }

    // What is wrong with a reply, in the light of the description.
    QStringList checkReply(const QByteArray &method, const QByteArray &target, const WireReply &reply)
    {
        const QString path = templateOf(QString::fromLatin1(target.split('?').first()));
        const QString status = QString::number(reply.status);
        const QString what = QString::fromLatin1(method) + u' ' + path + u' ' + status;
        const QJsonValue described =
            m_description[u"paths"][path][QString::fromLatin1(method.toLower())][u"responses"][status];
        if (!described.isObject()) {
            return {what + u" is not described, asked for "_s + QString::fromLatin1(target)};
        }
        m_seen.insert(what);
        const QJsonObject content = described[u"content"].toObject();
        if (content.isEmpty()) {
            return reply.body.isEmpty() ? QStringList() : QStringList(what + u" has a body"_s);
        }
        const QString type = QString::fromLatin1(reply.header("Content-Type").split(';').first());
        if (!content.contains(type)) {
            return {what + u" has the type "_s + type};
        }
        if (type != u"application/json") {
            return {};
        }
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(reply.body, &error);
        if (error.error != QJsonParseError::NoError) {
            return {what + u" is no JSON: "_s + error.errorString()};
        }
        const QJsonValue value = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
        return SchemaChecker(m_description).check(value, content[type][u"schema"].toObject(), what);
    }

private slots:
    void initTestCase()
    {
        QFile file(QStringLiteral(SERVICE_DESCRIPTION));
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
        m_description = QJsonDocument::fromJson(file.readAll()).object();
        QVERIFY(!m_description[u"paths"].toObject().isEmpty());
    }

    void init()
    {
        m_service = std::make_unique<StandIn>();
        m_service->takesFaultsOverHttp();
        QVERIFY(m_service->listen());
    }
    void cleanup() { m_service.reset(); }

    // The checker itself

    void findsWhatIsWrong_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QByteArray>("schema");
        const QByteArray object =
            R"({"type":"object","required":["a"],"properties":{"a":{"type":"integer"}},"additionalProperties":false})";
        QTest::newRow("wrong type") << QByteArray("1") << QByteArray(R"({"type":"string"})");
        QTest::newRow("fraction for an integer") << QByteArray("1.5") << QByteArray(R"({"type":"integer"})");
        QTest::newRow("text for a number") << QByteArray("\"1\"") << QByteArray(R"({"type":"number"})");
        QTest::newRow("null where it may not be") << QByteArray("null") << QByteArray(R"({"type":"string"})");
        QTest::newRow("value not listed") << QByteArray("\"b\"") << QByteArray(R"({"type":"string","enum":["a"]})");
        QTest::newRow("date with a fraction")
            << QByteArray("\"2024-05-01T12:00:00.5Z\"") << QByteArray(R"({"type":"string","format":"date-time"})");
        QTest::newRow("date without zone")
            << QByteArray("\"2024-05-01T12:00:00\"") << QByteArray(R"({"type":"string","format":"date-time"})");
        QTest::newRow("date that does not exist")
            << QByteArray("\"2024-02-30T12:00:00Z\"") << QByteArray(R"({"type":"string","format":"date-time"})");
        QTest::newRow("missing field") << QByteArray("{}") << object;
        QTest::newRow("undescribed field") << QByteArray(R"({"a":1,"b":2})") << object;
        QTest::newRow("wrong field") << QByteArray(R"({"a":"1"})") << object;
        QTest::newRow("wrong item") << QByteArray("[1,\"2\"]")
                                    << QByteArray(R"({"type":"array","items":{"type":"integer"}})");
        QTest::newRow("wrong other field")
            << QByteArray(R"({"x":1})") << QByteArray(R"({"type":"object","additionalProperties":{"type":"string"}})");
        // No raw string here: moc 6.4 loses the whole class over one that holds a "#".
        QTest::newRow("unknown schema") << QByteArray("1") << QByteArray("{\"$ref\":\"#/components/schemas/Nope\"}");
        QTest::newRow("unknown keyword") << QByteArray("1") << QByteArray(R"({"type":"integer","minimum":3})");
    }
    void findsWhatIsWrong()
    {
        QFETCH(QByteArray, json);
        QFETCH(QByteArray, schema);
        QCOMPARE(checkValue(json, schema).size(), 1);
    }

    void letsPassWhatIsRight_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QByteArray>("schema");
        QTest::newRow("integer for a number") << QByteArray("1") << QByteArray(R"({"type":"number"})");
        QTest::newRow("large integer") << QByteArray("9007199254740993") << QByteArray(R"({"type":"integer"})");
        QTest::newRow("null where it may be")
            << QByteArray("null") << QByteArray(R"({"type":"string","nullable":true})");
        QTest::newRow("anything") << QByteArray("[{}]") << QByteArray("{}");
        QTest::newRow("date with an offset")
            << QByteArray("\"2024-05-01T12:00:00+02:00\"") << QByteArray(R"({"type":"string","format":"date-time"})");
        QTest::newRow("free fields") << QByteArray(R"({"x":[1]})")
                                     << QByteArray(R"({"type":"object","additionalProperties":true})");
    }
    void letsPassWhatIsRight()
    {
        QFETCH(QByteArray, json);
        QFETCH(QByteArray, schema);
        QCOMPARE(checkValue(json, schema), QStringList());
    }

    void missesARouteAndAStatusThatNobodyDescribed()
    {
        const WireReply fine{200, "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n", "{\"data\":[]}"};
        WireReply teapot = fine;
        teapot.status = 418;
        const WireReply plain{200, "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n", "{\"data\":[]}"};
        QCOMPARE(checkReply("GET", "/v1/models", fine), QStringList());
        QCOMPARE(checkReply("GET", "/v1/models", teapot).size(), 1);
        QCOMPARE(checkReply("GET", "/v1/models", plain).size(), 1);
        QCOMPARE(checkReply("PUT", "/v1/models", fine).size(), 1);
        QCOMPARE(checkReply("GET", "/v1/model", fine).size(), 1);
        m_seen.clear();
    }

    // The stand-in's replies

    void describesEveryReply()
    {
        const QByteArray token = bearer(m_service->signsIn(u"ann@example.org"_s));
        const QByteArray form = "Content-Type: multipart/form-data; boundary=" + Boundary + "\r\n";
        const QByteArray file = formBody(Boundary, "a.txt", "content");
        const QByteArray check = R"({"email":"ann@example.org","code":"%","is_desktop":true})";
        const QByteArray code = StandIn::totp(Secret, QDateTime::currentDateTimeUtc()).toLatin1();

        struct Exchange {
            const char *method;
            QByteArray target;
            QByteArray headers;
            QByteArray body;
            int status;
        };
        const QList<Exchange> exchanges{
            {"GET", "/v1/models", {}, {}, 200},
            {"GET", "/v1/models/quill-70b/download", token, {}, 200},
            {"GET", "/v1/models/heron-rerank/download", token, {}, 200},
            {"GET", "/v1/models/nope/download", token, {}, 404},
            {"GET", "/v1/models/quill-70b/download", {}, {}, 401},
            {"GET", "/v1/files?workspace_id=default", token, {}, 200},
            {"GET", "/v1/files?workspace_id=default", {}, {}, 401},
            {"GET", "/v1/files", token, {}, 400},
            {"POST", "/v1/files?workspace_id=default", token + form, file, 201},
            {"POST", "/v1/files?workspace_id=default", token + form, file + '!', 400},
            {"POST", "/v1/files?workspace_id=default", form, file, 401},
            {"GET", "/v1/fine-tuning/jobs", token, {}, 200},
            {"GET", "/v1/fine-tuning/jobs", {}, {}, 401},
            {"POST", "/v1/fine-tuning/jobs/ft-40217/cancel", token, {}, 200},
            {"POST", "/v1/fine-tuning/jobs/ft-40217/cancel", token, {}, 409},
            {"POST", "/v1/fine-tuning/jobs/nope/cancel", token, {}, 404},
            {"POST", "/v1/fine-tuning/jobs/ft-40213/cancel", {}, {}, 401},
            {"GET", "/v1/fine-tuning/jobs", token, {}, 200},
            {"GET", "/v1/auth/me", token, {}, 200},
            {"GET", "/v1/auth/me", {}, {}, 401},
            {"POST", "/api/auth/user/login-init", {}, R"({"email":"ann@example.org"})", 200},
            {"POST", "/api/auth/user/login-init", {}, R"({"email":"ann@nowhere.test"})", 404},
            {"POST", "/api/auth/user/login-init", {}, "{}", 400},
            {"POST", "/api/auth/user/totp-login-v2", {}, "{}", 400},
            {"POST", "/api/auth/user/totp-login-v2", {}, QByteArray(check).replace("%", "no"), 401},
            {"POST", "/api/auth/user/totp-login-v2", {}, QByteArray(check).replace("ann", "eve"), 404},
            {"POST", "/api/auth/user/totp-login-v2", {}, QByteArray(check).replace("%", code), 200},
            {"GET", "/desktop-login?ticket=%", {}, {}, 200},
            {"GET", "/desktop-login?ticket=%", {}, {}, 410},
            {"GET", "/api/downloads/version", {}, {}, 200},
            {"POST", "/standin/faults", {}, R"({"route":"GET /x","kind":"answers","status":500})", 204},
            {"POST", "/standin/faults", {}, "{}", 400},
            {"DELETE", "/standin/faults", {}, {}, 204},
        };
        // An account in the middle of its set-up, then one that is through with it.
        QCOMPARE(checkReply("POST", "/api/auth/user/login-init",
                     ask(*m_service, "POST", "/api/auth/user/login-init", {}, R"({"email":"new@example.org"})")),
            QStringList());
        m_service->hasAccount(u"ann@example.org"_s, Secret);

        QByteArray ticket;
        for (const Exchange &exchange : exchanges) {
            const QByteArray target = QByteArray(exchange.target).replace("%", ticket);
            const WireReply reply = ask(*m_service, exchange.method, target, exchange.headers, exchange.body);
            QVERIFY2(
                reply.status == exchange.status, (exchange.method + (' ' + target) + ' ' + reply.body).constData());
            QCOMPARE(checkReply(exchange.method, target, reply), QStringList());
            if (reply.body.contains("ticket=")) {
                ticket = reply.body.split('=').last().chopped(2);
            }
        }
    }

    void describesTheJobsAsTheyMoveOn()
    {
        const QByteArray token = bearer(m_service->signsIn(u"ann@example.org"_s));
        const auto check = [&] {
            const QByteArray target = "/v1/fine-tuning/jobs";
            return checkReply("GET", target, ask(*m_service, "GET", target, token));
        };
        m_service->trainingAdvances(u"ft-40220"_s, 12);
        QCOMPARE(check(), QStringList());
        m_service->trainingFinishes(u"ft-40220"_s);
        m_service->trainingFails(u"ft-40217"_s, u"Out of memory"_s);
        QCOMPARE(check(), QStringList());
    }

    void describesUnknownPathsAndMethodsAsDetail()
    {
        const QJsonObject detail{{u"$ref"_s, u"#/components/schemas/Detail"_s}};
        for (const QByteArray &method : {QByteArray("GET"), QByteArray("PUT")}) {
            const WireReply reply = ask(*m_service, method, method == "GET" ? "/nope" : "/v1/models");
            QCOMPARE(reply.status, method == "GET" ? 404 : 405);
            QCOMPARE(SchemaChecker(m_description).check(QJsonDocument::fromJson(reply.body).object(), detail),
                QStringList());
        }
    }

    // Runs after the others, whose replies it counts.
    void describesNothingThatNeverComes()
    {
        const QJsonObject paths = m_description[u"paths"].toObject();
        QStringList neverSeen;
        for (auto path = paths.begin(); path != paths.end(); ++path) {
            for (const QString &method : {u"get"_s, u"post"_s, u"put"_s, u"patch"_s, u"delete"_s}) {
                const QStringList statuses = (*path)[method][u"responses"].toObject().keys();
                for (const QString &status : statuses) {
                    const QString what = method.toUpper() + u' ' + path.key() + u' ' + status;
                    if (!m_seen.contains(what)) {
                        neverSeen += what;
                    }
                }
            }
        }
        QCOMPARE(neverSeen, QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_ServiceDescription)
#include "tst_ServiceDescription.moc"
