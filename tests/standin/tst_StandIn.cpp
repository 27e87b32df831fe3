#include "tests/standin/WireClient.h"

#include "standin/StandIn.h"
#include "standin/Totp.h"
#include "support/Waiting.h"

#include <QCryptographicHash>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QSignalSpy>

#include <cerrno>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using quillmere::testing::eventually;

namespace {

const QByteArray Boundary = "6F9619FF-8B86-D011-B42D-00CF4FC964FF";
const QByteArray FormType = "Content-Type: multipart/form-data; boundary=" + Boundary + "\r\n";
const QByteArray FilesTarget = "/v1/files?workspace_id=default";
const QString Secret = u"JBSWY3DPEHPK3PXP"_s;
const QDateTime Noon(QDate(2026, 11, 20), QTime(12, 0), Qt::UTC);

QJsonObject json(const WireReply &reply)
{
    return QJsonDocument::fromJson(reply.body).object();
}

QJsonObject jobIn(const WireReply &reply, const QString &id)
{
    for (const QJsonValue &job : json(reply)[u"data"].toArray()) {
        if (job[u"id"] == id) {
            return job.toObject();
        }
    }
    return {};
}

} // namespace

class tst_StandIn : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<StandIn> m_service;
    QByteArray m_token;

    WireReply get(const QByteArray &target) { return ask(*m_service, "GET", target, m_token); }
    WireReply post(const QByteArray &target, const QByteArray &body = {})
    {
        return ask(*m_service, "POST", target, m_token, body);
    }
    WireReply upload(const QByteArray &body, const QByteArray &target = FilesTarget)
    {
        return ask(*m_service, "POST", target, m_token + FormType, body);
    }
    WireReply loginInit(const QByteArray &email)
    {
        return post("/api/auth/user/login-init", "{\"email\":\"" + email + "\"}");
    }
    WireReply checkCode(const QByteArray &email, const QString &code)
    {
        return post("/api/auth/user/totp-login-v2",
            "{\"email\":\"" + email + "\",\"code\":\"" + code.toLatin1() + "\",\"is_desktop\":true}");
    }
    bool losesItsClients()
    {
        return eventually([&] { return m_service->openConnections() == 0; });
    }
    QByteArray ticketTarget(const WireReply &reply)
    {
        return json(reply)[u"redirectUrl"].toString().remove(m_service->origin()).toLatin1();
    }

private slots:
    void init()
    {
        m_service = std::make_unique<StandIn>();
        m_service->usesClock([] { return Noon; });
        QVERIFY2(m_service->listen(), qPrintable(m_service->errorString()));
        m_token = bearer(m_service->signsIn(u"ann@example.org"_s));
    }
    void cleanup() { m_service.reset(); }

    // Routes

    void listensOnThisMachineOnAFreePort()
    {
        StandIn other;
        QVERIFY(other.listen());
        QVERIFY(other.port() != m_service->port());
        QVERIFY(!StandIn().listen(other.port()));
        QCOMPARE(other.origin(), u"http://127.0.0.1:%1"_s.arg(other.port()));
    }

    void listsModelsToAnyone()
    {
        const WireReply reply = ask(*m_service, "GET", "/v1/models");
        QCOMPARE(reply.status, 200);
        QCOMPARE(reply.header("Content-Type"), "application/json");
        QCOMPARE(json(reply)[u"data"].toArray().size(), 24);
    }

    void wantsATokenWhereTheWireSaysSo_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("target");
        QTest::newRow("model download") << QByteArray("GET") << QByteArray("/v1/models/quill-1b/download");
        QTest::newRow("files") << QByteArray("GET") << FilesTarget;
        QTest::newRow("upload") << QByteArray("POST") << FilesTarget;
        QTest::newRow("jobs") << QByteArray("GET") << QByteArray("/v1/fine-tuning/jobs");
        QTest::newRow("cancel") << QByteArray("POST") << QByteArray("/v1/fine-tuning/jobs/ft-40217/cancel");
        QTest::newRow("user") << QByteArray("GET") << QByteArray("/v1/auth/me");
    }
    void wantsATokenWhereTheWireSaysSo()
    {
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, target);
        const QByteArray body = method == "POST" ? formBody(Boundary, "a", "a") : QByteArray();
        for (const QByteArray &headers : {QByteArray(), QByteArray("Authorization: Bearer \r\n"),
                 QByteArray("Authorization: Bearer x\r\n"), QByteArray(m_token).replace("Bearer", "Basic")}) {
            const WireReply reply = ask(*m_service, method, target, FormType + headers, body);
            QCOMPARE(reply.status, 401);
            QCOMPARE(reply.body, "{\"detail\":\"Not authenticated\"}");
            QCOMPARE(reply.header("WWW-Authenticate"), "Bearer");
        }
        const int accepted = ask(*m_service, method, target, FormType + m_token, body).status;
        QVERIFY(accepted == 200 || accepted == 201);
        m_service->revokesTokens();
        QCOMPARE(ask(*m_service, method, target, FormType + m_token, body).status, 401);
    }

    void tellsWhereAModelIsDownloaded()
    {
        const QJsonObject download = json(get("/v1/models/quill-1b/download"));
        QCOMPARE(download[u"size_bytes"].toInteger(), 2252800000);
        QCOMPARE(download[u"expires_at"].toString(), u"2026-11-20T13:00:00Z"_s);
        QVERIFY(download[u"checksum"].toString().startsWith(u"sha256:"));
        QVERIFY(!json(get("/v1/models/heron-rerank/download")).contains(u"checksum"));
        QCOMPARE(get("/v1/models/a/b/download").status, 404);
        QCOMPARE(m_service->unexpectedRequests(), QStringList());
    }

    void cancelsAJobOnce()
    {
        const WireReply cancelled = post("/v1/fine-tuning/jobs/ft-40217/cancel");
        QCOMPARE(cancelled.status, 200);
        QCOMPARE(json(cancelled)[u"status"].toString(), u"cancelled"_s);
        QCOMPARE(json(cancelled)[u"progress"].toInt(), 41);
        QCOMPARE(json(cancelled)[u"completed_at"].toString(), u"2026-11-20T12:00:00Z"_s);
        QCOMPARE(jobIn(get("/v1/fine-tuning/jobs"), u"ft-40217"_s), json(cancelled));

        const WireReply again = post("/v1/fine-tuning/jobs/ft-40217/cancel");
        QCOMPARE(again.status, 409);
        QCOMPARE(again.body, "{\"detail\":\"Job ft-40217 is already cancelled\"}");
        QCOMPARE(post("/v1/fine-tuning/jobs/ft-0/cancel").status, 404);
    }

    void keepsJobsPerAccount()
    {
        post("/v1/fine-tuning/jobs/ft-40217/cancel");
        m_token = bearer(m_service->signsIn(u"bob@example.org"_s));
        QCOMPARE(jobIn(get("/v1/fine-tuning/jobs"), u"ft-40217"_s)[u"status"].toString(), u"running"_s);
    }

    void hasJobsInEveryStatus()
    {
        QSet<QString> statuses;
        for (const QJsonValue &job : json(get("/v1/fine-tuning/jobs"))[u"data"].toArray()) {
            statuses.insert(job[u"status"].toString());
        }
        QCOMPARE(statuses,
            QSet<QString>(
                {u"pending"_s, u"running"_s, u"completed"_s, u"failed"_s, u"cancelled"_s, u"queued_for_review"_s}));
    }

    void sendsGivenListsLetterForLetter()
    {
        const QByteArray odd = "[ {\"id\":\"j\", \"progress\":66.50, \"n\":1e400} ]";
        m_service->hasJobs(odd);
        m_service->hasModels(odd);
        m_service->hasFiles(odd);
        m_service->hasUser("{\"id\": 1.0}");
        for (const QByteArray &target : {QByteArray("/v1/fine-tuning/jobs"), QByteArray("/v1/models"), FilesTarget}) {
            QCOMPARE(get(target).body, "{\"data\":" + odd + '}');
        }
        QCOMPARE(get("/v1/auth/me").body, "{\"id\": 1.0}");
    }

    void tellsWhoIsSignedIn()
    {
        m_token = bearer(m_service->signsIn(u"Ann.Lee@Example.org"_s));
        const QJsonObject user = json(get("/v1/auth/me"));
        QCOMPARE(user[u"email"].toString(), u"ann.lee@example.org"_s);
        QCOMPARE(user[u"name"].toString(), u"Ann Lee"_s);
    }

    void offersVersions()
    {
        m_service->offersVersion(u"9.9.9"_s, u"https://quillmere.example/9"_s);
        QCOMPARE(get("/api/downloads/version").body,
            "{\"version\":\"9.9.9\",\"web_download_url\":\"https://quillmere.example/9\"}");
    }

    void notesRequestsThatNobodyAnswers()
    {
        QCOMPARE(get("/nope?x=1").body, "{\"detail\":\"Not Found\"}");
        const WireReply wrongMethod = ask(*m_service, "DELETE", FilesTarget, m_token);
        QCOMPARE(wrongMethod.status, 405);
        QCOMPARE(wrongMethod.header("Allow"), "GET, POST");
        m_service->on("GET /elsewhere").answers(200, "{}");
        QCOMPARE(get("/elsewhere").status, 200);
        QCOMPARE(m_service->unexpectedRequests(),
            QStringList({u"GET /nope?x=1"_s, u"DELETE /v1/files?workspace_id=default"_s}));
    }

    void keepsRequestsAsTheyCame()
    {
        QSignalSpy begins(m_service.get(), &StandIn::requestBegins);
        QSignalSpy received(m_service.get(), &StandIn::requestReceived);
        ask(*m_service, "GET", "/v1/models?a=%20b", "x-ODD: 1\r\nAuthorization: Bearer \r\nX-Odd: 2\r\n");
        ask(*m_service, "POST", "/api/auth/user/login-init", {}, "{\"email\":\"a@example.org\"}");
        QCOMPARE(begins.size(), 2);
        QCOMPARE(received.size(), 2);
        QCOMPARE(m_service->requests().size(), 2);

        const QList<StandIn::Request> found = m_service->requests("GET", "/v1/models");
        QCOMPARE(found.size(), 1);
        const StandIn::Request &models = found.first();
        QCOMPARE(models.target, "/v1/models?a=%20b");
        QCOMPARE(models.path(), "/v1/models");
        QCOMPARE(models.query("a"), "%20b");
        QVERIFY(models.query("b").isNull());
        QCOMPARE(models.headers[2], std::make_pair(QByteArray("x-ODD"), QByteArray("1")));
        QCOMPARE(models.header("X-odd"), "1");
        QCOMPARE(models.header("Authorization"), "Bearer ");
        QVERIFY(!models.hasHeader("Accept"));
        QCOMPARE(m_service->requests()[1].body, "{\"email\":\"a@example.org\"}");

        m_service->forgetRequests();
        QCOMPARE(m_service->requests().size(), 0);
    }

    // Sign-in

    void agreesWithRfc6238_data()
    {
        QTest::addColumn<qint64>("seconds");
        QTest::addColumn<QString>("code");
        QTest::newRow("1970") << qint64(59) << u"94287082"_s;
        QTest::newRow("2005") << qint64(1111111109) << u"07081804"_s;
        QTest::newRow("2005, two seconds later") << qint64(1111111111) << u"14050471"_s;
        QTest::newRow("2009") << qint64(1234567890) << u"89005924"_s;
        QTest::newRow("2033") << qint64(2000000000) << u"69279037"_s;
        QTest::newRow("2603") << qint64(20000000000) << u"65353130"_s;
    }
    void agreesWithRfc6238()
    {
        QFETCH(qint64, seconds);
        QFETCH(QString, code);
        const QByteArray secret = "12345678901234567890";
        const QDateTime at = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
        QCOMPARE(standin::totpCode(secret, at, 8), code);
        QCOMPARE(StandIn::totp(u"gezd gnbv gy3t qojq GEZDGNBVGY3TQOJQ"_s, at), code.right(6));
        QCOMPARE(StandIn::totp(u"not base32!"_s, at), QString());
    }

    void agreesWithRfc4648_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("one byte") << QByteArray("f") << u"MY"_s;
        QTest::newRow("two bytes") << QByteArray("fo") << u"MZXQ"_s;
        QTest::newRow("three bytes") << QByteArray("foo") << u"MZXW6"_s;
        QTest::newRow("four bytes") << QByteArray("foob") << u"MZXW6YQ"_s;
        QTest::newRow("five bytes") << QByteArray("fooba") << u"MZXW6YTB"_s;
        QTest::newRow("six bytes") << QByteArray("foobar") << u"MZXW6YTBOI"_s;
        QTest::newRow("high bits") << QByteArray("\xff\xfe\xfd\xfc\xfb\xfa") << u"777P37H37I"_s;
    }
    void agreesWithRfc4648()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(standin::base32Encoded(bytes), text);
        QCOMPARE(standin::base32Decoded(text + u"==="_s), bytes);
    }

    void asksForSetUpUntilTheFirstRightCode()
    {
        const QJsonObject first = json(loginInit("new@example.org"));
        QCOMPARE(first[u"mode"].toString(), u"setup"_s);
        const QString secret = first[u"secret"].toString();
        QCOMPARE(standin::base32Decoded(secret).size(), 20);
        QCOMPARE(checkCode("new@example.org", u"12345"_s).status, 401);
        QCOMPARE(json(loginInit("NEW@example.org"))[u"secret"].toString(), secret);
        QCOMPARE(checkCode("new@example.org", StandIn::totp(secret, Noon)).status, 200);
        QCOMPARE(loginInit("new@example.org").body, "{\"mode\":\"login\"}");
    }

    void drawsTheSecretAsAQrCode()
    {
        const QByteArray url = json(loginInit("new@example.org"))[u"qrCode"].toString().toLatin1();
        const QByteArray start = "data:image/png;base64,";
        QVERIFY(url.startsWith(start));
        const QImage image = QImage::fromData(QByteArray::fromBase64(url.mid(start.size())), "PNG");
        constexpr int Module = 6;
        const auto isDark = [&](int x, int y) {
            return qGray(image.pixel(x * Module + Module / 2, y * Module + Module / 2)) < 128;
        };
        const int modules = image.width() / Module;
        QCOMPARE(image.height(), image.width());
        QCOMPARE((modules - 8 - 17) % 4, 0); // versions are 21, 25, 29 ... modules wide, with four free ones around
        // The three finder patterns: a dark ring, a light ring, a dark heart.
        for (const QPoint &corner : {QPoint(4, 4), QPoint(modules - 11, 4), QPoint(4, modules - 11)}) {
            for (int y = -1; y <= 7; ++y) {
                for (int x = -1; x <= 7; ++x) {
                    const int ring = std::max(std::abs(x - 3), std::abs(y - 3));
                    QCOMPARE(isDark(corner.x() + x, corner.y() + y), ring != 2 && ring != 4);
                }
            }
        }
        QCOMPARE(standin::otpauthUrl(u"a+b@example.org"_s, "foobar"),
            "otpauth://totp/Quillmere:a%2Bb%40example.org?secret=MZXW6YTBOI&issuer=Quillmere&algorithm=SHA1&digits=6"
            "&period=30");
    }

    void knowsFourDomains()
    {
        for (const QByteArray &email : {QByteArray("a@example.org"), QByteArray("a@EXAMPLE.com"),
                 QByteArray("a@example.net"), QByteArray("a@quillmere.example")})
            QCOMPARE(loginInit(email).status, 200);
        for (const QByteArray &email : {QByteArray("a@b.c"), QByteArray("example.org"), QByteArray("a@example.org ")}) {
            const WireReply reply = loginInit(email);
            QCOMPARE(reply.status, 404);
            QCOMPARE(reply.body, "{\"error\":\"No account for this address\"}");
        }
        QCOMPARE(checkCode("a@b.c", u"000000"_s).status, 404);
        m_service->hasAccount(u"a@b.c"_s, Secret);
        QCOMPARE(loginInit("a@b.c").body, "{\"mode\":\"login\"}");
    }

    void takesCodesOfOneStepAside_data()
    {
        QTest::addColumn<int>("seconds");
        QTest::addColumn<int>("status");
        QTest::newRow("two steps ago") << -60 << 401;
        QTest::newRow("the step before") << -30 << 200;
        QTest::newRow("now") << 0 << 200;
        QTest::newRow("the step after") << 59 << 200;
        QTest::newRow("in two steps") << 60 << 401;
    }
    void takesCodesOfOneStepAside()
    {
        QFETCH(int, seconds);
        m_service->hasAccount(u"a@example.org"_s, Secret);
        QTEST(checkCode("a@example.org", StandIn::totp(Secret, Noon.addSecs(seconds))).status, "status");
    }

    void refusesOtherSignInBodies_data()
    {
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<QByteArray>("body");
        const QByteArray init = "/api/auth/user/login-init";
        const QByteArray check = "/api/auth/user/totp-login-v2";
        QTest::newRow("nothing") << init << QByteArray();
        QTest::newRow("no object") << init << QByteArray("[]");
        QTest::newRow("wrong key") << init << QByteArray(R"({"mail":"a@example.org"})");
        QTest::newRow("one key too many") << init << QByteArray(R"({"email":"a@example.org","x":1})");
        QTest::newRow("a number for the address") << init << QByteArray(R"({"email":1})");
        QTest::newRow("no is_desktop") << check << QByteArray(R"({"email":"a@example.org","code":"1"})");
        QTest::newRow("is_desktop as text")
            << check << QByteArray(R"({"email":"a@example.org","code":"1","is_desktop":"true"})");
        QTest::newRow("is_desktop as number")
            << check << QByteArray(R"({"email":"a@example.org","code":"1","is_desktop":1})");
        QTest::newRow("not for a desktop")
            << check << QByteArray(R"({"email":"a@example.org","code":"1","is_desktop":false})");
        QTest::newRow("a number for the code")
            << check << QByteArray(R"({"email":"a@example.org","code":1,"is_desktop":true})");
    }
    void refusesOtherSignInBodies()
    {
        QFETCH(QByteArray, target);
        QFETCH(QByteArray, body);
        m_service->hasAccount(u"a@example.org"_s, Secret);
        const WireReply reply = post(target, body);
        QCOMPARE(reply.status, 400);
        QVERIFY(json(reply)[u"error"].isString());
    }

    void refusesSignInBodiesThatAreNotDeclaredAsJson()
    {
        const WireReply reply = ask(*m_service, "POST", "/api/auth/user/login-init", "Content-Type: text/plain\r\n",
            R"({"email":"a@example.org"})");
        QCOMPARE(reply.status, 400);
    }

    void returnsToTheApplicationWithTokensThatWork()
    {
        m_service->hasAccount(u"ann@example.org"_s, Secret);
        const QByteArray target = ticketTarget(checkCode("ann@example.org", StandIn::totp(Secret, Noon)));
        QVERIFY(target.startsWith("/desktop-login?ticket="));
        const WireReply page = ask(*m_service, "GET", target);
        QCOMPARE(page.status, 200);
        QCOMPARE(page.header("Content-Type"), "text/html; charset=utf-8");
        QCOMPARE(page.header("Cache-Control"), "no-store");
        QVERIFY(page.body.contains("location.replace("));
        static const QRegularExpression Link(
            u"href=\"com\\.quillmere\\.studio://callback#access_token=(\\w+)&amp;refresh_token=(\\w+)\""_s);
        const QRegularExpressionMatch match = Link.match(QString::fromUtf8(page.body));
        QVERIFY(match.hasMatch());
        m_token = bearer(match.captured(1));
        QCOMPARE(json(get("/v1/auth/me"))[u"email"].toString(), u"ann@example.org"_s);
    }

    void takesATicketOnce()
    {
        m_service->hasAccount(u"ann@example.org"_s, Secret);
        const QByteArray target = ticketTarget(checkCode("ann@example.org", StandIn::totp(Secret, Noon)));
        QCOMPARE(get(target).status, 200);
        const WireReply again = get(target);
        QCOMPARE(again.status, 410);
        QVERIFY(!again.body.contains("access_token"));
        QCOMPARE(get("/desktop-login").status, 410);
    }

    void takesATicketForTenMinutes()
    {
        QDateTime now = Noon;
        m_service->usesClock([&] { return now; });
        m_service->hasAccount(u"ann@example.org"_s, Secret);
        const QByteArray early = ticketTarget(checkCode("ann@example.org", StandIn::totp(Secret, Noon)));
        const QByteArray late = ticketTarget(checkCode("ann@example.org", StandIn::totp(Secret, Noon)));
        now = Noon.addSecs(600);
        QCOMPARE(get(early).status, 200);
        now = Noon.addSecs(601);
        QCOMPARE(get(late).status, 410);
    }

    // Uploads

    void takesAFileInItsFrame_data()
    {
        QTest::addColumn<QByteArray>("filename");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("plain") << QByteArray("train.jsonl") << QByteArray("{\"a\":1}\n");
        QTest::newRow("empty file") << QByteArray("empty.csv") << QByteArray();
        QTest::newRow("no name") << QByteArray() << QByteArray("x");
        QTest::newRow("quotes in the name") << QByteArray("a\"b\".json") << QByteArray("x");
        QTest::newRow("name beyond ASCII") << QByteArray("Größe 表.txt") << QByteArray("x");
        QTest::newRow("content like a frame")
            << QByteArray("x") << QByteArray("\r\n--\r\n\r\n--6F9619FF-8B86\r\n\r\n--");
        QTest::newRow("binary") << QByteArray("x") << QByteArray("\0\xff\r\n\x1a\0", 6);
        QTest::newRow("larger than what is kept") << QByteArray("big") << QByteArray(3'000'000, '\r');
    }
    void takesAFileInItsFrame()
    {
        QFETCH(QByteArray, filename);
        QFETCH(QByteArray, content);
        const QByteArray body = formBody(Boundary, filename, content);
        const WireReply reply = upload(body);
        QCOMPARE(reply.status, 201);
        const QJsonObject file = json(reply);
        QCOMPARE(file[u"filename"].toString(), QString::fromUtf8(filename));
        QCOMPARE(file[u"purpose"].toString(), u"fine-tune"_s);
        QCOMPARE(file[u"bytes"].toInteger(), content.size());
        QCOMPARE(file[u"created_at"].toString(), u"2026-11-20T12:00:00Z"_s);

        const StandIn::Upload kept = m_service->uploads().constFirst();
        QCOMPARE(kept.workspace, "default");
        QCOMPARE(kept.filename, QString::fromUtf8(filename));
        QCOMPARE(kept.bytes, content.size());
        QCOMPARE(kept.sha256, QCryptographicHash::hash(content, QCryptographicHash::Sha256));
        QCOMPARE(kept.head, content.left(64 * 1024));
        const StandIn::Request request = m_service->requests().constLast();
        QCOMPARE(request.bodySize, body.size());
        QCOMPARE(request.body, body.left(64 * 1024));
    }

    void refusesAnyOtherFrame_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("says");
        const QByteArray good = formBody(Boundary, "a.txt", "content");
        const auto with = [&](const QByteArray &before, const QByteArray &after) {
            return QByteArray(good).replace(before, after);
        };
        const QString wrongType = u"Content-Type must be multipart/form-data; boundary=BOUNDARY"_s;
        const QByteArray form = "multipart/form-data";
        QTest::newRow("no form") << QByteArray("application/octet-stream") << good << wrongType;
        QTest::newRow("no boundary") << form << good << wrongType;
        QTest::newRow("quoted boundary") << form + "; boundary=\"" + Boundary + '"' << good << wrongType;
        QTest::newRow("parameter after the boundary") << form + "; boundary=" + Boundary + ";a=b" << good << wrongType;

        const QByteArray type = form + "; boundary=" + Boundary;
        const QString wrongStart = u"the body must start with the delimiter"_s;
        QTest::newRow("other boundary") << form + "; boundary=x" << good << wrongStart;
        QTest::newRow("bytes before the frame") << type << "\r\n" + good << wrongStart;
        QTest::newRow("other field name") << type << with("name=\"file\"", "name=\"data\"") << wrongStart;
        QTest::newRow("encoded file name") << type << with("filename=", "filename*=") << wrongStart;
        QTest::newRow("no file name") << type << with("; filename=\"a.txt\"", "") << wrongStart;

        const QString wrongLine = u"the file name must be followed by the line Content-Type"_s;
        QTest::newRow("other type of part") << type << with("octet-stream", "json") << wrongLine;
        QTest::newRow("no type of part") << type << with("Content-Type: application/octet-stream\r\n", "") << wrongLine;
        QTest::newRow("one more header") << type << with("octet-stream\r\n", "octet-stream\r\nX: 1\r\n") << wrongLine;

        const QString wrongName = u"the file name must be one line of UTF-8"_s;
        QTest::newRow("line end in the file name") << type << with("a.txt", "a\r\nX: 1") << wrongName;
        QTest::newRow("NUL in the file name") << type << with("a.txt", QByteArray("a\0b", 3)) << wrongName;
        QTest::newRow("file name not in UTF-8") << type << with("a.txt", "a\xff") << wrongName;

        const QString wrongEnd = u"there must be one part"_s;
        QTest::newRow("bytes after the frame") << type << good + "\r\n" << wrongEnd;
        QTest::newRow("delimiter that does not close") << type << good.chopped(4) + "\r\n" << wrongEnd;
        QTest::newRow("two parts") << type
                                   << good.chopped(4)
                + "\r\nContent-Disposition: form-data; name=\"purpose\"\r\n\r\nx\r\n--" + Boundary + "--\r\n"
                                   << wrongEnd;

        const QString unfinished = u"the body ends before its closing delimiter does"_s;
        QTest::newRow("nothing") << type << QByteArray() << unfinished;
        QTest::newRow("no last line end") << type << good.chopped(2) << unfinished;
        QTest::newRow("no closing delimiter") << type << good.chopped(Boundary.size() + 8) << unfinished;
        QTest::newRow("bare line feeds") << type << with("\r\n", "\n") << unfinished;
        QTest::newRow("a head without end")
            << type << good.left(30) + QByteArray(20'000, 'x') << u"the part's header does not end"_s;
    }
    void refusesAnyOtherFrame()
    {
        QFETCH(QByteArray, type);
        QFETCH(QByteArray, body);
        QFETCH(QString, says);
        const WireReply reply = ask(*m_service, "POST", FilesTarget, m_token + "Content-Type: " + type + "\r\n", body);
        QCOMPARE(reply.status, 400);
        QVERIFY2(json(reply)[u"detail"].toString().startsWith(says), reply.body.constData());
        QCOMPARE(m_service->uploads().size(), 0);
    }

    void readsAFrameThatComesByteByByte()
    {
        WireClient client(*m_service);
        const QByteArray body = formBody(Boundary, "a.txt", "\r\n--6F9619\r\n--");
        const QByteArray bytes = requestBytes("POST", FilesTarget, m_token + FormType, body);
        for (const char byte : bytes) {
            client.send(QByteArray(1, byte));
            QCoreApplication::processEvents();
        }
        QVERIFY(client.receives("HTTP/1.1 201"));
        QCOMPARE(m_service->uploads().constFirst().bytes, 14);
    }

    void keepsUploadsInTheirWorkspace()
    {
        const qsizetype before = json(get(FilesTarget))[u"data"].toArray().size();
        QCOMPARE(before, 5);
        const QJsonObject file = json(upload(formBody(Boundary, "a.txt", "x")));
        const QJsonArray files = json(get(FilesTarget))[u"data"].toArray();
        QCOMPARE(files.size(), 6);
        QCOMPARE(files.last().toObject(), file);
        QCOMPARE(get("/v1/files?workspace_id=other").body, "{\"data\":[]}");
        QCOMPARE(get("/v1/files").status, 400);
        QCOMPARE(upload(formBody(Boundary, "a.txt", "x"), "/v1/files").status, 400);
        m_token = bearer(m_service->signsIn(u"bob@example.org"_s));
        QCOMPARE(json(get(FilesTarget))[u"data"].toArray().size(), 5);
    }

    void keepsWholeBodiesWhenAsked()
    {
        m_service->keepsWholeBodies();
        const QByteArray body = formBody(Boundary, "a.txt", QByteArray(200'000, 'x'));
        upload(body);
        QCOMPARE(m_service->requests().constLast().body, body);
    }

    void notesAnUploadThatBrokeOff()
    {
        QSignalSpy closed(m_service.get(), &StandIn::connectionClosed);
        QSignalSpy begins(m_service.get(), &StandIn::requestBegins);
        {
            WireClient client(*m_service);
            client.send(requestBytes("POST", FilesTarget, m_token + FormType, formBody(Boundary, "a", "b")).chopped(5));
            QVERIFY(eventually([&] { return !begins.isEmpty(); }));
        }
        QVERIFY(eventually([&] { return !closed.isEmpty(); }));
        QCOMPARE(m_service->requests().size(), 1);
        QVERIFY(!m_service->requests().constFirst().complete);
        QCOMPARE(m_service->uploads().size(), 0);
    }

    // HTTP

    void answersSeveralRequestsOnOneConnection()
    {
        WireClient client(*m_service);
        const QByteArray request = requestBytes("GET", "/api/downloads/version");
        client.send(request + request + request);
        QVERIFY(client.receives("HTTP/1.1 200 OK", 3));
        QVERIFY(client.isOpen());
        QCOMPARE(m_service->openConnections(), 1);
        client.send(request);
        QVERIFY(client.receives("HTTP/1.1 200 OK", 4));
    }

    void keepsTheNextRequestWaitingBehindAHangingOne()
    {
        QSignalSpy received(m_service.get(), &StandIn::requestReceived);
        m_service->on("GET /api/downloads/version", 1).hangsBeforeReply();
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/api/downloads/version") + requestBytes("GET", "/v1/models"));
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        client.send(requestBytes("GET", "/v1/auth/me"));
        QCOMPARE(get("/v1/auth/me").status, 200);
        QCOMPARE(m_service->requests("GET", "/v1/models").size(), 0);
        m_service->release();
        QVERIFY(client.receives("HTTP/1.1 ", 3));
        QVERIFY(client.received().indexOf("web_download_url") < client.received().indexOf("Marlowe"));
        QVERIFY(client.received().endsWith("{\"detail\":\"Not authenticated\"}"));
    }

    void readsChunkedBodies()
    {
        WireClient client(*m_service);
        client.send(requestBytes("POST", "/api/auth/user/login-init", "Transfer-Encoding: chunked\r\n")
            + "9\r\n{\"email\":\r\n00A;x=1\r\n\"a@b.test\"\r\n1\r\n}\r\n0\r\nTrailer: x\r\n\r\n");
        QVERIFY(client.receives("No account for this address"));
        QCOMPARE(m_service->requests().constFirst().body, "{\"email\":\"a@b.test\"}");
    }

    void refusesMalformedRequests_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("status");
        QTest::newRow("no HTTP") << QByteArray("hello\r\n\r\n") << 400;
        QTest::newRow("other version") << QByteArray("GET / HTTP/2\r\nHost: x\r\n\r\n") << 400;
        QTest::newRow("blank in the target") << QByteArray("GET /a b HTTP/1.1\r\nHost: x\r\n\r\n") << 400;
        QTest::newRow("no host") << QByteArray("GET /v1/models HTTP/1.1\r\n\r\n") << 400;
        QTest::newRow("header without colon") << QByteArray("GET / HTTP/1.1\r\nHost: x\r\nodd\r\n\r\n") << 400;
        QTest::newRow("blank before the colon") << QByteArray("GET / HTTP/1.1\r\nHost : x\r\n\r\n") << 400;
        QTest::newRow("folded header") << QByteArray("GET / HTTP/1.1\r\nHost: x\r\n y: z\r\n\r\n") << 400;
        QTest::newRow("length that is no number")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: +1\r\n\r\n") << 400;
        QTest::newRow("length and chunks")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: 1\r\nTransfer-Encoding: chunked\r\n\r\n")
            << 400;
        QTest::newRow("chunk length that is no number")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\nZZ\r\n") << 400;
        QTest::newRow("chunk longer than it says")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\n1\r\nab\r\n") << 400;
        QTest::newRow("header without end") << QByteArray("GET / HTTP/1.1\r\nX: ") + QByteArray(70'000, 'x') << 431;
        QTest::newRow("body beyond a megabyte")
            << QByteArray("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: 1048577\r\n\r\n") + QByteArray(1048577, 'x')
            << 413;
    }
    void refusesMalformedRequests()
    {
        QFETCH(QByteArray, bytes);
        WireClient client(*m_service);
        client.send(bytes);
        QVERIFY(client.seesTheEnd());
        QTEST(client.received().mid(9, 3).toInt(), "status");
        QCOMPARE(m_service->unexpectedRequests().size(), 1);
        QVERIFY(m_service->unexpectedRequests().constFirst().startsWith(u"malformed request: "));
    }

    // Failures

    void failsAsOftenAsToldAndInTheOrderTold()
    {
        m_service->on("GET /v1/models").answers(500);
        m_service->on("GET /v1/models", 2).answers(501);
        m_service->on("GET /v1/models", 1).answers(502);
        m_service->on("GET /v1/models").answers(503);
        for (const int status : {501, 501, 502, 503, 503}) {
            QCOMPARE(get("/v1/models").status, status);
        }
        m_service->on("GET /v1/models", 1).answers(504);
        for (const int status : {504, 503}) {
            QCOMPARE(get("/v1/models").status, status);
        }
        m_service->clearFaults();
        QCOMPARE(get("/v1/models").status, 200);
    }

    void failsBelowAPathUnlessALongerOneIsTold()
    {
        m_service->on("GET /v1/models").answers(500);
        m_service->on("GET /v1/models/quill-1b").answers(501);
        m_service->on("POST /v1").answers(502);
        QCOMPARE(get("/v1/models?x=1").status, 500);
        QCOMPARE(get("/v1/models/fennel-3b/download").status, 500);
        QCOMPARE(get("/v1/models/quill-1b/download").status, 501);
        QCOMPARE(get("/v1/modelsx").status, 404);
        QCOMPARE(get("/v1/auth/me").status, 200);
    }

    void answersAsToldWithoutActing()
    {
        m_service->on("POST /v1/files", 1).answers(429, "slow down", "text/plain", {{"Retry-After", "7"}});
        const WireReply reply = upload(formBody(Boundary, "a", "b"));
        QCOMPARE(reply.status, 429);
        QCOMPARE(reply.body, "slow down");
        QCOMPARE(reply.header("Content-Type"), "text/plain");
        QCOMPARE(reply.header("Retry-After"), "7");
        QCOMPARE(m_service->uploads().size(), 0);
        QCOMPARE(m_service->requests("POST", "/v1/files").size(), 1);
    }

    void redirects()
    {
        m_service->on("GET /v1/models").redirects(307, "/elsewhere");
        const WireReply reply = get("/v1/models");
        QCOMPARE(reply.status, 307);
        QCOMPARE(reply.header("Location"), "/elsewhere");
    }

    void hangsBeforeTheReplyUntilReleased()
    {
        QSignalSpy received(m_service.get(), &StandIn::requestReceived);
        QSignalSpy sent(m_service.get(), &StandIn::replySent);
        m_service->on("GET /v1/models", 1).hangsBeforeReply();
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        // A second client that is served in full shows that the first has had time to be.
        QCOMPARE(get("/v1/models").status, 200);
        QCOMPARE(client.received(), "");
        QCOMPARE(sent.size(), 1);
        m_service->release();
        QVERIFY(client.receives("]\n}"));
        QCOMPARE(sent.size(), 2);
    }

    void hangsAfterTheHeadersUntilReleased()
    {
        m_service->on("GET /v1/auth/me", 1).hangsAfterHeaders();
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/auth/me", m_token));
        QVERIFY(client.receives("\r\n\r\n"));
        QCOMPARE(get("/v1/auth/me").status, 200);
        QVERIFY(client.received().endsWith("\r\n\r\n"));
        m_service->release();
        QVERIFY(client.receives("ann@example.org"));
    }

    void noticesThatAClientGaveUpWaiting()
    {
        QSignalSpy received(m_service.get(), &StandIn::requestReceived);
        QSignalSpy closed(m_service.get(), &StandIn::connectionClosed);
        m_service->on("GET /v1/models").hangsBeforeReply();
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        client.closes();
        QVERIFY(eventually([&] { return !closed.isEmpty(); }));
        QCOMPARE(m_service->openConnections(), 0);
    }

    void dripsWhenTold()
    {
        QSignalSpy received(m_service.get(), &StandIn::requestReceived);
        m_service->on("GET /api/downloads/version").drips(7);
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/api/downloads/version"));
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        QVERIFY(m_service->drip());
        QVERIFY(client.receives("HTTP/1."));
        QCOMPARE(client.received(), "HTTP/1.");
        QVERIFY(m_service->drip());
        QVERIFY(client.receives("1 200 O"));
        QCOMPARE(client.received(), "HTTP/1.1 200 O");
        while (m_service->drip()) { }
        QVERIFY(client.receives("web_download_url"));
    }

    void dripsByItself()
    {
        m_service->on("GET /api/downloads/version").drips(50);
        m_service->dripsEvery(1ms);
        QCOMPARE(json(get("/api/downloads/version"))[u"version"].toString(), u"1.0.0"_s);
    }

    void cutsTheConnectionAmidTheBody()
    {
        m_service->on("GET /api/downloads/version").cutsConnection(5);
        const WireReply reply = get("/api/downloads/version");
        QCOMPARE(reply.status, 200);
        QVERIFY(reply.header("Content-Length").toInt() > 5);
        QCOMPARE(reply.body, "{\"ver");
        m_service->on("GET /api/downloads/version").cutsConnection(0);
        QCOMPARE(get("/api/downloads/version").body, "");
    }

    void closesWithoutAReply()
    {
        m_service->on("POST /v1/files").closesWithoutReply();
        WireClient client(*m_service);
        client.send(requestBytes("POST", FilesTarget, m_token + FormType, formBody(Boundary, "a", "b")));
        QVERIFY(client.seesTheEnd());
        QCOMPARE(client.received(), "");
        QCOMPARE(m_service->requests().size(), 1);
        QCOMPARE(m_service->uploads().size(), 0);
    }

    void sendsRawBytes()
    {
        m_service->on("GET /v1/models").sendsRaw("HTTP/1.1 banana");
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(client.seesTheEnd());
        QCOMPARE(client.received(), "HTTP/1.1 banana");
    }

    void sendsRawBytesAndHangsUntilReleased()
    {
        m_service->on("GET /v1/models").sendsRawAndHangs("HTTP/1.1 ban");
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(client.receives("ban"));
        QCOMPARE(get("/api/downloads/version").status, 200);
        QVERIFY(client.isOpen());
        QCOMPARE(client.received(), "HTTP/1.1 ban");
        m_service->release();
        QVERIFY(client.seesTheEnd());
        QCOMPARE(client.received(), "HTTP/1.1 ban");
    }

    void dripsRawBytes()
    {
        QSignalSpy received(m_service.get(), &StandIn::requestReceived);
        m_service->on("GET /v1/models").dripsRaw(4, "banana");
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        QVERIFY(m_service->drip());
        QVERIFY(client.receives("bana"));
        QCOMPARE(client.received(), "bana");
        QVERIFY(m_service->drip());
        QVERIFY(client.seesTheEnd());
        QCOMPARE(client.received(), "banana");
    }

    void repeatsRawBytesWithoutEnd()
    {
        m_service->on("GET /v1/models").repeatsRaw("HTTP/1.1 ", "banana");
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(client.receivesMoreThan(1'000'000));
        QVERIFY(client.received().startsWith("HTTP/1.1 bananabanana"));
        client.closes();
        QVERIFY(losesItsClients());
    }

    void resetsTheConnection()
    {
        m_service->on("GET /v1/models").resets("HTTP/1.1 ban");
        QSignalSpy closed(m_service.get(), &StandIn::connectionClosed);
        // Qt's sockets take a reset for an ordinary end.
        const int client = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(m_service->port());
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        QCOMPARE(::connect(client, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
        const QByteArray request = requestBytes("GET", "/v1/models");
        QCOMPARE(qsizetype(::send(client, request.constData(), size_t(request.size()), 0)), request.size());
        QVERIFY(eventually([&] { return !closed.isEmpty(); }));
        char bytes[100];
        QCOMPARE(::recv(client, bytes, sizeof bytes, 0), ssize_t(12));
        QCOMPARE(QByteArray(bytes, 12), "HTTP/1.1 ban");
        QCOMPARE(::recv(client, bytes, sizeof bytes, 0), ssize_t(-1));
        QCOMPARE(errno, ECONNRESET);
        ::close(client);
    }

    void sendsABadChunk()
    {
        m_service->on("GET /v1/models").sendsBadChunk();
        const WireReply reply = get("/v1/models");
        QCOMPARE(reply.header("Transfer-Encoding"), "chunked");
        QVERIFY(reply.body.startsWith("8\r\n{\"data\":\r\nZZ\r\n"));
    }

    void sendsAHugeBodyOfExactlyThatSize()
    {
        m_service->on("GET /v1/models").sendsHugeBody(5'000'000);
        const WireReply reply = get("/v1/models");
        QCOMPARE(reply.header("Content-Length"), "5000000");
        QCOMPARE(reply.body.size(), 5'000'000);
        QCOMPARE(json(reply)[u"data"].toArray().size(), 24);
    }

    void sendsAnEndlessBodyNoFasterThanItIsTaken()
    {
        QSignalSpy closed(m_service.get(), &StandIn::connectionClosed);
        m_service->on("GET /v1/models").sendsEndlessBody();
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(client.receivesMoreThan(4'000'000));
        QVERIFY(client.received().contains("\r\n\r\n10000\r\n        "));
        client.stopsReading();
        // Whoever is served meanwhile shows that the service is not busy filling its memory.
        QCOMPARE(get("/api/downloads/version").status, 200);
        client.closes();
        QVERIFY(losesItsClients());
    }

    void stopsReadingAnUpload()
    {
        QSignalSpy begins(m_service.get(), &StandIn::requestBegins);
        m_service->on("POST /v1/files").stopsReading(1000);
        WireClient client(*m_service);
        client.send(
            requestBytes("POST", FilesTarget, m_token + FormType, formBody(Boundary, "a", QByteArray(5000, 'x'))));
        QVERIFY(eventually([&] { return !begins.isEmpty(); }));
        QCOMPARE(get("/api/downloads/version").status, 200);
        QCOMPARE(client.received(), "");
        QVERIFY(client.isOpen());
        client.closes();
        QVERIFY(losesItsClients());
        QVERIFY(!m_service->requests("POST", "/v1/files").constFirst().complete);
    }

    void cutsAnUploadAmidItsBody()
    {
        m_service->on("POST /v1/files").cutsRequest(1000);
        WireClient client(*m_service);
        client.send(
            requestBytes("POST", FilesTarget, m_token + FormType, formBody(Boundary, "a", QByteArray(5000, 'x'))));
        QVERIFY(client.seesTheEnd());
        QCOMPARE(client.received(), "");
        QCOMPARE(m_service->requests().size(), 1);
        QVERIFY(!m_service->requests().constFirst().complete);
    }

    void bendsReplies()
    {
        m_service->hasJobs(R"([{"id":"j","progress":7,"config":{"id":"inner"},"list":[{"id":null}]}])");
        const QByteArray target = "/v1/fine-tuning/jobs";
        m_service->on("GET /v1/fine-tuning/jobs", 1).givesBadJson();
        const QByteArray half = get(target).body;
        QVERIFY(half.startsWith("{\"data\":[{"));
        QVERIFY(QJsonDocument::fromJson(half).isNull());

        m_service->on("GET /v1/fine-tuning/jobs", 1).omitsField("id");
        QCOMPARE(get(target).body, R"({"data":[{"config":{},"list":[{}],"progress":7}]})");
        m_service->on("GET /v1/fine-tuning/jobs", 1).sendsWrongType("id");
        QCOMPARE(get(target).body, R"({"data":[{"config":{"id":5},"id":5,"list":[{"id":"wrong"}],"progress":7}]})");
        m_service->on("GET /v1/fine-tuning/jobs", 1).sendsWrongType("progress");
        QVERIFY(get(target).body.contains("\"progress\":\"wrong\""));
        m_service->on("GET /v1/fine-tuning/jobs", 1).sendsField("progress", 66.5);
        QVERIFY(get(target).body.contains("\"progress\":66.5"));
        QVERIFY(get(target).body.contains("\"progress\":7"));
    }

    void actsUponRequestsWhoseReplyIsBent()
    {
        m_service->on("POST /v1/files").givesBadJson();
        upload(formBody(Boundary, "a", "b"));
        QCOMPARE(m_service->uploads().size(), 1);
    }

    void servesAnOrdinaryClient()
    {
        QNetworkAccessManager manager;
        QNetworkRequest request(QUrl(m_service->origin() + u"/v1/auth/me"_s));
        const auto status = [&] {
            const std::unique_ptr<QNetworkReply> reply(manager.get(request));
            eventually([&] { return reply->isFinished(); });
            return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        };
        QCOMPARE(status(), 401);
        request.setRawHeader("Authorization", m_token.trimmed().mid(15));
        QCOMPARE(status(), 200);
        m_service->on("GET /v1/auth/me", 1).answers(204);
        QCOMPARE(status(), 204);
        QCOMPARE(status(), 200);
        QCOMPARE(m_service->unexpectedRequests(), QStringList());
    }

    // Orders over HTTP

    void takesNoOrdersUnlessAllowed()
    {
        QCOMPARE(post("/standin/faults", R"({"route":"GET /v1/models","kind":"answers","status":500})").status, 404);
        QCOMPARE(get("/v1/models").status, 200);
    }

    void takesOrdersOverHttp_data()
    {
        QTest::addColumn<QByteArray>("order");
        QTest::addColumn<QByteArray>("start");
        const QByteArray head = "HTTP/1.1 200 OK\r\n";
        QTest::newRow("answers") << QByteArray(R"("answers","status":418,"body":{"detail":"tea"})")
                                 << QByteArray("HTTP/1.1 418");
        QTest::newRow("redirects") << QByteArray(R"("redirects","status":302,"location":"/x")")
                                   << QByteArray("HTTP/1.1 302");
        QTest::newRow("drips") << QByteArray(R"("drips","bytes":40)") << head;
        QTest::newRow("closes_without_reply") << QByteArray(R"("closes_without_reply")") << QByteArray();
        QTest::newRow("cuts_connection") << QByteArray(R"("cuts_connection","bytes":3)") << head;
        QTest::newRow("sends_raw") << QByteArray(R"("sends_raw","body":"raw")") << QByteArray("raw");
        QTest::newRow("drips_raw") << QByteArray(R"("drips_raw","body":"raw","bytes":2)") << QByteArray("raw");
        QTest::newRow("resets") << QByteArray(R"("resets")") << QByteArray();
        QTest::newRow("sends_bad_chunk") << QByteArray(R"("sends_bad_chunk")") << head;
        QTest::newRow("sends_huge_body") << QByteArray(R"("sends_huge_body","bytes":1000)") << head;
        QTest::newRow("cuts_request") << QByteArray(R"("cuts_request","bytes":0)") << QByteArray();
        QTest::newRow("gives_bad_json") << QByteArray(R"("gives_bad_json")") << head;
        QTest::newRow("omits_field") << QByteArray(R"("omits_field","field":"version")") << head;
        QTest::newRow("sends_wrong_type") << QByteArray(R"("sends_wrong_type","field":"version")") << head;
        QTest::newRow("sends_field") << QByteArray(R"("sends_field","field":"version","value":3)") << head;
    }
    void takesOrdersOverHttp()
    {
        QFETCH(QByteArray, order);
        QFETCH(QByteArray, start);
        m_service->takesFaultsOverHttp();
        m_service->dripsEvery(1ms);
        const QByteArray request = requestBytes("GET", "/api/downloads/version", "Connection: close\r\n");
        const auto reply = [&] {
            WireClient client(*m_service);
            client.send(request);
            return client.seesTheEnd() ? client.received() : QByteArray("no end");
        };
        const QByteArray ordinary = reply();
        QCOMPARE(
            post("/standin/faults", R"({"route":"GET /api/downloads/version","times":1,"kind":)" + order + '}').status,
            204);
        const QByteArray bent = reply();
        QVERIFY2(bent.startsWith(start), bent.constData());
        QVERIFY(start.isEmpty() ? bent.isEmpty() : true);
        if (!order.contains("drips")) {
            QVERIFY(bent != ordinary);
        }
        QCOMPARE(reply(), ordinary);
    }

    void takesOrdersToHangAndReleasesThem_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::newRow("before the reply") << QByteArray("hangs_before_reply");
        QTest::newRow("after the headers") << QByteArray("hangs_after_headers");
    }
    void takesOrdersToHangAndReleasesThem()
    {
        QFETCH(QByteArray, kind);
        m_service->takesFaultsOverHttp();
        QCOMPARE(post("/standin/faults", "{\"route\":\"GET /api/downloads/version\",\"kind\":\"" + kind + "\"}").status,
            204);
        QSignalSpy received(m_service.get(), &StandIn::requestReceived);
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/api/downloads/version"));
        QVERIFY(eventually([&] { return !received.isEmpty(); }));
        QVERIFY(!client.received().contains("version"));
        QCOMPARE(ask(*m_service, "DELETE", "/standin/faults").status, 204);
        QVERIFY(client.receives("web_download_url"));
        QCOMPARE(get("/api/downloads/version").status, 200);
    }

    void takesOrdersToStreamWithoutEnd_data()
    {
        QTest::addColumn<QByteArray>("order");
        QTest::newRow("a body") << QByteArray(R"("sends_endless_body")");
        QTest::newRow("these bytes") << QByteArray(R"("repeats_raw","body":"a","block":"b")");
    }
    void takesOrdersToStreamWithoutEnd()
    {
        QFETCH(QByteArray, order);
        m_service->takesFaultsOverHttp();
        QCOMPARE(post("/standin/faults", R"({"route":"GET /v1/models","kind":)" + order + '}').status, 204);
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(client.receivesMoreThan(1'000'000));
    }

    void takesOrdersToHangAfterSomeBytes()
    {
        m_service->takesFaultsOverHttp();
        const QByteArray order = R"({"route":"GET /v1/models","kind":"sends_raw_and_hangs","body":"raw"})";
        QCOMPARE(post("/standin/faults", order).status, 204);
        WireClient client(*m_service);
        client.send(requestBytes("GET", "/v1/models"));
        QVERIFY(client.receives("raw"));
        QVERIFY(client.isOpen());
        QCOMPARE(ask(*m_service, "DELETE", "/standin/faults").status, 204);
        QVERIFY(client.seesTheEnd());
        QCOMPARE(client.received(), "raw");
    }

    void takesOrdersToStopReading()
    {
        m_service->takesFaultsOverHttp();
        post("/standin/faults", R"({"route":"POST /api","kind":"stops_reading","bytes":1})");
        QSignalSpy begins(m_service.get(), &StandIn::requestBegins);
        WireClient client(*m_service);
        client.send(requestBytes("POST", "/api/auth/user/login-init", {}, "{}"));
        QVERIFY(eventually([&] { return !begins.isEmpty(); }));
        QCOMPARE(get("/api/downloads/version").status, 200);
        QCOMPARE(client.received(), "");
    }

    void refusesOrdersThatItDoesNotUnderstand_data()
    {
        QTest::addColumn<QByteArray>("order");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("no route") << QByteArray(R"({"kind":"answers","status":500})");
        QTest::newRow("no path") << QByteArray(R"({"route":"GET","kind":"answers","status":500})");
        QTest::newRow("unknown kind") << QByteArray(R"({"route":"GET /v1/models","kind":"explodes"})");
        QTest::newRow("no status") << QByteArray(R"({"route":"GET /v1/models","kind":"answers"})");
        QTest::newRow("nothing to repeat") << QByteArray(R"({"route":"GET /v1/models","kind":"repeats_raw"})");
        QTest::newRow("no bytes to drip") << QByteArray(R"({"route":"GET /v1/models","kind":"drips"})");
    }
    void refusesOrdersThatItDoesNotUnderstand()
    {
        QFETCH(QByteArray, order);
        m_service->takesFaultsOverHttp();
        QCOMPARE(post("/standin/faults", order).status, 400);
        QCOMPARE(get("/v1/models").status, 200);
    }

    void refusesOrdersThatAWebPageCouldSend()
    {
        m_service->takesFaultsOverHttp();
        const WireReply reply = ask(*m_service, "POST", "/standin/faults", "Content-Type: text/plain\r\n",
            R"({"route":"GET /v1/models","kind":"answers","status":500})");
        QCOMPARE(reply.status, 400);
        QCOMPARE(get("/standin/faults").status, 405);
        QCOMPARE(get("/v1/models").status, 200);
    }

    // Progress

    void movesTrainingOnCommand()
    {
        const QByteArray target = "/v1/fine-tuning/jobs";
        QVERIFY(m_service->trainingAdvances(u"ft-40220"_s, 30));
        QJsonObject job = jobIn(get(target), u"ft-40220"_s);
        QCOMPARE(job[u"status"].toString(), u"running"_s);
        QCOMPARE(job[u"progress"].toInt(), 30);
        QCOMPARE(job[u"started_at"].toString(), u"2026-11-20T12:00:00Z"_s);
        QVERIFY(!job.contains(u"completed_at"));

        QVERIFY(m_service->trainingFinishes(u"ft-40220"_s));
        job = jobIn(get(target), u"ft-40220"_s);
        QCOMPARE(job[u"status"].toString(), u"completed"_s);
        QCOMPARE(job[u"progress"].toInt(), 100);
        QCOMPARE(job[u"completed_at"].toString(), u"2026-11-20T12:00:00Z"_s);

        QVERIFY(m_service->trainingFails(u"ft-40217"_s, u"Out of memory"_s));
        job = jobIn(get(target), u"ft-40217"_s);
        QCOMPARE(job[u"status"].toString(), u"failed"_s);
        QCOMPARE(job[u"progress"].toInt(), 41);
        QCOMPARE(job[u"error_message"].toString(), u"Out of memory"_s);
        QVERIFY(!m_service->trainingAdvances(u"ft-0"_s, 1));
    }

    void standsStillUnlessTold()
    {
        const QByteArray before = get("/v1/fine-tuning/jobs").body;
        m_service->runsByItself(1ms);
        QVERIFY(eventually([&] { return get("/v1/fine-tuning/jobs").body != before; }));
        m_service->runsByItself(0ms);
        const QByteArray stopped = get("/v1/fine-tuning/jobs").body;
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(get("/v1/fine-tuning/jobs").body, stopped);
        }
    }

    void runsTwoJobsAtOnce()
    {
        m_service->hasJobs(R"([{"id":"a","status":"running","progress":0},{"id":"b","status":"pending","progress":0},)"
                           R"({"id":"c","status":"pending","progress":0}])");
        const QByteArray before = get("/v1/fine-tuning/jobs").body;
        m_service->runsByItself(1ms);
        WireReply reply;
        QVERIFY(eventually([&] {
            reply = get("/v1/fine-tuning/jobs");
            return reply.body != before;
        }));
        QCOMPARE(jobIn(reply, u"b"_s)[u"status"].toString(), u"running"_s);
        QCOMPARE(jobIn(reply, u"c"_s)[u"status"].toString(), u"pending"_s);
    }

    void finishesWhatItRuns()
    {
        get("/v1/fine-tuning/jobs");
        m_service->runsByItself(1ms);
        const auto status = [&](const QString &id) {
            return jobIn(get("/v1/fine-tuning/jobs"), id)[u"status"].toString();
        };
        QVERIFY(eventually([&] { return status(u"ft-40220"_s) == u"running"; }));
        QVERIFY(eventually([&] { return status(u"ft-40220"_s) == u"completed"; }));
        const QJsonObject job = jobIn(get("/v1/fine-tuning/jobs"), u"ft-40217"_s);
        QCOMPARE(job[u"status"].toString(), u"completed"_s);
        QCOMPARE(job[u"progress"].toInt(), 100);
        QCOMPARE(job[u"metrics"][u"epoch"].toDouble(), 3.0);
        QCOMPARE(job[u"completed_at"].toString(), u"2026-11-20T12:00:00Z"_s);
        QCOMPARE(status(u"ft-40221"_s), u"queued_for_review"_s);
    }
};

QTEST_GUILESS_MAIN(tst_StandIn)
#include "tst_StandIn.moc"
