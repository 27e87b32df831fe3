#include "platform/Http.h"
#include "service/APIError.h"
#include "service/QuillmereAPIClient.h"
#include "support/CapturedOutput.h"
#include "support/PlatformEnvironment.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace quillmere;
using namespace quillmere::testing;

namespace {

// A session with a token, or without one, that notes when it ends.
class NotedSession : public ServiceSession {
public:
    QCoro::Task<std::optional<QString>> accessToken() override
    {
        // A copy of its own: g++ 12 moves a member that is returned like this.
        const std::optional<QString> copy = token;
        co_return copy;
    }
    void logout() override { ++logouts; }

    std::optional<QString> token;
    int logouts = 0;
};

// Waits for an operation of the client and keeps how it ended.
template <typename T> class Ended {
public:
    explicit Ended(QCoro::Task<Result<T>> task) { keep(std::move(task), m_result); }

    const Result<T> &operator*()
    {
        if (!eventually([this] { return m_result->has_value(); })) {
            qFatal("The operation did not end.");
        }
        return **m_result;
    }
    const Failure &failure() { return (**this).failure(); }
    bool hasEnded() const { return m_result->has_value(); }

private:
    using Place = std::shared_ptr<std::optional<Result<T>>>;
    static QCoro::Task<> keep(QCoro::Task<Result<T>> task, Place place)
    {
        auto result = co_await task;
        place->emplace(std::move(result));
    }

    Place m_result = std::make_shared<std::optional<Result<T>>>();
};

template <typename T> Ended(QCoro::Task<Result<T>>) -> Ended<T>;

const QByteArray user = "{\"id\": \"u1\", \"email\": \"ada@example.org\"}";
const QByteArray file = "{\"id\": \"f1\", \"filename\": \"a.json\", \"purpose\": \"fine-tune\", \"bytes\": 3, "
                        "\"created_at\": \"2026-11-20T12:00:00Z\"}";

bool isService(const Failure &failure, APIError error)
{
    return failure.kind() == Failure::Kind::Service && failure.code() == int(error);
}

} // namespace

class tst_QuillmereAPIClient : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        world = std::make_unique<PlatformEnvironment>();
        session = NotedSession();
        client().setSession(&session);
    }
    void cleanup() { world.reset(); }

    void isOneObject() { QCOMPARE(&QuillmereAPIClient::shared(), &QuillmereAPIClient::shared()); }

    void asksForEachThingWhereItStands_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<bool>("sendsToken");
        QTest::newRow("listModels") << QByteArray("GET") << QByteArray("/v1/models") << false;
        QTest::newRow("getModelDownload") << QByteArray("GET") << QByteArray("/v1/models/a/b?c/download") << true;
        QTest::newRow("listDatasets") << QByteArray("GET") << QByteArray("/v1/files?workspace_id=default") << true;
        QTest::newRow("listFineTuneJobs") << QByteArray("GET") << QByteArray("/v1/fine-tuning/jobs") << true;
        QTest::newRow("cancelFineTuneJob")
            << QByteArray("POST") << QByteArray("/v1/fine-tuning/jobs/ft-1/cancel") << true;
        QTest::newRow("getCurrentUser") << QByteArray("GET") << QByteArray("/v1/auth/me") << true;
    }
    void asksForEachThingWhereItStands()
    {
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, target);
        QFETCH(bool, sendsToken);
        session.token = u"the token"_s;
        world->service.on(method + " /").answers(503);

        const QByteArray operation = QTest::currentDataTag();
        if (operation == "listModels") {
            QVERIFY(!*Ended(client().listModels()));
        } else if (operation == "getModelDownload") {
            QVERIFY(!*Ended(client().getModelDownload(u"a/b?c"_s)));
        } else if (operation == "listDatasets") {
            QVERIFY(!*Ended(client().listDatasets(u"default"_s)));
        } else if (operation == "listFineTuneJobs") {
            QVERIFY(!*Ended(client().listFineTuneJobs()));
        } else if (operation == "cancelFineTuneJob") {
            QVERIFY(!*Ended(client().cancelFineTuneJob(u"ft-1"_s)));
        } else {
            QVERIFY(!*Ended(client().getCurrentUser()));
        }

        QCOMPARE(world->service.requests().size(), 1);
        const auto request = world->service.requests().constFirst();
        QCOMPARE(request.method, method);
        QCOMPARE(request.target, target);
        QCOMPARE(request.header("Content-Type"), QByteArray("application/json"));
        QCOMPARE(request.header("User-Agent"), QByteArray("Quillmere-Studio/1.0"));
        QCOMPARE(request.header("Authorization"), sendsToken ? QByteArray("Bearer the token") : QByteArray());
        QCOMPARE(request.body, QByteArray());
    }

    void sendsNoTokenThatWouldForgeAHeader_data()
    {
        QTest::addColumn<QString>("token");
        QTest::newRow("CR LF") << u"a\r\nX-Forged: 1"_s;
        QTest::newRow("LF") << u"a\nX-Forged: 1"_s;
        QTest::newRow("CR") << u"a\rX-Forged: 1"_s;
        QTest::newRow("NUL") << u"a\0b"_s;
    }
    void sendsNoTokenThatWouldForgeAHeader()
    {
        QFETCH(QString, token);
        session.token = token;
        QVERIFY(!*Ended(client().getCurrentUser()));
        QCOMPARE(world->service.requests().size(), 1);
        const auto request = world->service.requests().constFirst();
        QVERIFY(!request.hasHeader("X-Forged"));
        QVERIFY(!request.hasHeader("Authorization"));
    }

    void decodesEachReply()
    {
        session.token = world->service.signsIn(u"ada@example.org"_s);
        const Result<ModelsResponse> models = *Ended(client().listModels());
        QVERIFY(models && models->data.size() > 20);
        const auto download = *Ended(client().getModelDownload(models->data.constFirst().id));
        QVERIFY(download && !download->downloadUrl.isEmpty());
        const auto files = *Ended(client().listDatasets(u"default"_s));
        QVERIFY(files && !files->isEmpty());
        const auto jobs = *Ended(client().listFineTuneJobs());
        QVERIFY(jobs && !jobs->data.isEmpty());
        const auto running = std::find_if(
            jobs->data.cbegin(), jobs->data.cend(), [](const FineTuneJob &job) { return job.status == u"running"_s; });
        QVERIFY(running != jobs->data.cend());
        const auto canceled = *Ended(client().cancelFineTuneJob(running->id));
        QVERIFY(canceled);
        QCOMPARE(canceled->status, u"cancelled"_s);
        const auto me = *Ended(client().getCurrentUser());
        QVERIFY(me);
        QCOMPARE(me->email, u"ada@example.org"_s);
    }

    void leavesTheHeaderOutWithoutAToken()
    {
        world->service.on("GET /v1/auth/me").answers(200, user);
        QVERIFY(*Ended(client().getCurrentUser()));
        QVERIFY(!world->service.requests().constFirst().hasHeader("Authorization"));
    }

    void sendsAnEmptyTokenAsBearerAndABlank()
    {
        session.token = u""_s;
        world->service.on("GET /v1/auth/me").answers(200, user);
        QVERIFY(*Ended(client().getCurrentUser()));
        const auto request = world->service.requests().constFirst();
        QVERIFY(request.hasHeader("Authorization"));
        QCOMPARE(request.header("Authorization").trimmed(), QByteArray("Bearer"));
    }

    void readsTheTokenAtEachCall()
    {
        world->service.on("GET /v1/auth/me").answers(200, user);
        session.token = u"first"_s;
        QVERIFY(*Ended(client().getCurrentUser()));
        session.token = u"second"_s;
        QVERIFY(*Ended(client().getCurrentUser()));
        QCOMPARE(world->service.requests().at(0).header("Authorization"), QByteArray("Bearer first"));
        QCOMPARE(world->service.requests().at(1).header("Authorization"), QByteArray("Bearer second"));
    }

    void sendsNothingToWhatIsNoUrl_data()
    {
        QTest::addColumn<QString>("id");
        QTest::newRow("a blank") << u"a b"_s;
        QTest::newRow("a line break") << u"a\r\nX-Forged: 1"_s;
        QTest::newRow("a letter beyond ASCII") << u"modèle"_s;
        QTest::newRow("half an escape") << u"%zz"_s;
        QTest::newRow("a quote") << u"\""_s;
    }
    void sendsNothingToWhatIsNoUrl()
    {
        QFETCH(QString, id);
        Ended download(client().getModelDownload(id));
        QVERIFY(!*download);
        QVERIFY(isService(download.failure(), APIError::invalidURL));
        QCOMPARE(download.failure().localizedDescription(), u"Invalid API URL"_s);
        Ended upload(client().uploadDataset(id, "x", u"a.json"_s));
        QVERIFY(!*upload);
        QVERIFY(isService(upload.failure(), APIError::invalidURL));
        QVERIFY(world->service.requests().isEmpty());
    }

    void failsByStatus_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<APIError>("error");
        QTest::addColumn<QString>("text");
        const QByteArray boom = "{\"detail\": \"Boom\"}";
        QTest::newRow("401") << 401 << boom << APIError::unauthorized << u"Please log in to continue"_s;
        QTest::newRow("403") << 403 << boom << APIError::forbidden
                             << u"You don't have permission to access this resource"_s;
        QTest::newRow("404") << 404 << boom << APIError::notFound << u"Resource not found"_s;
        QTest::newRow("429") << 429 << boom << APIError::rateLimited << u"Too many requests, please try again later"_s;
        QTest::newRow("500 with a detail") << 500 << boom << APIError::serverError << u"Boom"_s;
        QTest::newRow("500 that is not JSON")
            << 500 << QByteArray("<html>") << APIError::serverError << u"Unknown error (status: 500)"_s;
        QTest::newRow("500 without a body")
            << 500 << QByteArray() << APIError::serverError << u"Unknown error (status: 500)"_s;
        QTest::newRow("400 with a detail of another type")
            << 400 << QByteArray("{\"detail\": 5}") << APIError::serverError << u"Unknown error (status: 400)"_s;
        QTest::newRow("302 that leads nowhere") << 302 << boom << APIError::serverError << u"Boom"_s;
        QTest::newRow("304") << 304 << QByteArray() << APIError::serverError << u"Unknown error (status: 304)"_s;
        QTest::newRow("418") << 418 << boom << APIError::serverError << u"Boom"_s;
    }
    void failsByStatus()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(APIError, error);
        QFETCH(QString, text);
        world->service.on("GET /v1/auth/me").answers(status, body);
        CapturedOutput output;
        Ended call(client().getCurrentUser());
        QVERIFY(!*call);
        QVERIFY(isService(call.failure(), error));
        QCOMPARE(call.failure().localizedDescription(), text);
        QCOMPARE(session.logouts, status == 401 ? 1 : 0);
        QCOMPARE(world->service.requests().size(), 1);
        QCOMPARE(output.lines(), QStringList());
    }

    void endsTheSessionBeforeTheCallerHears_data()
    {
        QTest::addColumn<bool>("hasToken");
        QTest::newRow("with a token") << true;
        QTest::newRow("without one") << false;
    }
    void endsTheSessionBeforeTheCallerHears()
    {
        QFETCH(bool, hasToken);
        if (hasToken) {
            session.token = u"old"_s;
        }
        world->service.on("GET /v1/models").answers(401);
        int logoutsWhenHeard = -1;
        const auto call = [](QuillmereAPIClient &api, NotedSession &noted, int &heard) -> QCoro::Task<> {
            const auto models = co_await api.listModels();
            heard = models ? -2 : noted.logouts;
        };
        call(client(), session, logoutsWhenHeard);
        QVERIFY(eventually([&] { return logoutsWhenHeard != -1; }));
        QCOMPARE(logoutsWhenHeard, 1);
    }

    void failsAsDecodingWhenARecordIsMissing_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("204") << 204 << QByteArray();
        QTest::newRow("200 without a body") << 200 << QByteArray();
        QTest::newRow("201 with another object") << 201 << QByteArray("{}");
        QTest::newRow("200 with HTML") << 200 << QByteArray("<html>");
    }
    void failsAsDecodingWhenARecordIsMissing()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        world->service.on("GET /v1/auth/me").answers(status, body);
        Ended call(client().getCurrentUser());
        QVERIFY(!*call);
        QCOMPARE(call.failure().kind(), Failure::Kind::Decoding);
    }

    void takesAnyStatusOfTheTwoHundreds()
    {
        world->service.on("GET /v1/auth/me").answers(299, user);
        QVERIFY(*Ended(client().getCurrentUser()));
    }

    void passesATransportFailureOnAsItIs()
    {
        world->service.on("GET /v1/auth/me").cutsConnection(5);
        Ended cut(client().getCurrentUser());
        QVERIFY(!*cut);
        QCOMPARE(cut.failure().kind(), Failure::Kind::Transport);
        QVERIFY(!cut.failure().localizedDescription().isEmpty());

        // The next call knows nothing of it.
        world->service.clearFaults();
        session.token = world->service.signsIn(u"ada@example.org"_s);
        QVERIFY(*Ended(client().getCurrentUser()));
    }

    void decodesALargeReplyToo()
    {
        QByteArray models;
        for (int i = 0; i < 20'000; ++i) {
            models += (i ? "," : "") + QByteArray("{\"id\": \"m") + QByteArray::number(i) + "\", \"name\": \"Model\"}";
        }
        world->service.hasModels('[' + models + ']');
        const auto list = *Ended(client().listModels());
        QVERIFY(list);
        QCOMPARE(list->data.size(), 20'000);
        QCOMPARE(list->data.constLast().id, u"m19999"_s);
    }

    void keepsOverlappingCallsApart()
    {
        world->service.on("GET /v1/models").hangsBeforeReply();
        world->service.on("GET /v1/auth/me").answers(200, user);
        Ended slow(client().listModels());
        QVERIFY(eventually([this] { return world->service.requests("GET", "/v1/models").size() == 1; }));
        Ended quick(client().getCurrentUser());
        QVERIFY(*quick);
        QVERIFY(!slow.hasEnded());
        world->service.release();
        QVERIFY(*slow);
    }

    void sendsABodyAsJson()
    {
        world->service.on("POST /v1/anything").answers(200, user);
        UserProfile body{u"u1"_s, u"a@b.c"_s, std::nullopt, u"https://example.org/a.png"_s};
        QVERIFY(*Ended(client().request<UserProfile>(u"anything"_s, u"POST"_s, body, false)));
        const QByteArray sent = "{\"avatar_url\":\"https://example.org/a.png\",\"email\":\"a@b.c\",\"id\":\"u1\"}";
        QCOMPARE(world->service.requests().constFirst().body, sent);
    }

    void sendsNothingWhenTheBodyCannotBeEncoded()
    {
        FineTuneJob job;
        job.config = QMap<QString, AnyCodable>{{u"rate"_s, AnyCodable{qQNaN()}}};
        Ended call(client().request<UserProfile>(u"anything"_s, u"POST"_s, job, false));
        QVERIFY(!*call);
        QCOMPARE(call.failure().kind(), Failure::Kind::Encoding);
        QVERIFY(world->service.requests().isEmpty());
    }

    void looksAtTheUrlBeforeTheBody()
    {
        FineTuneJob job;
        job.config = QMap<QString, AnyCodable>{{u"rate"_s, AnyCodable{qQNaN()}}};
        Ended call(client().request<UserProfile>(u"any thing"_s, u"POST"_s, job, false));
        QVERIFY(!*call);
        QVERIFY(isService(call.failure(), APIError::invalidURL));
    }

    void uploadsAFileAsOnePartByteForByte_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("a plain file") << u"train.jsonl"_s << QByteArray("{\"a\": 1}\n");
        QTest::newRow("a name with quotes") << u"a\"b.json"_s << QByteArray("x");
        QTest::newRow("a name beyond ASCII") << u"données 🦙.csv"_s << QByteArray("x");
        QTest::newRow("an empty file") << u"empty.txt"_s << QByteArray();
        QTest::newRow("bytes that look like a frame") << u"a.bin"_s << QByteArray("\r\n--\r\n\0\xff", 8);
    }
    void uploadsAFileAsOnePartByteForByte()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        session.token = world->service.signsIn(u"ada@example.org"_s);
        world->service.on("POST /v1/files").answers(200, file);
        const auto uploaded = *Ended(client().uploadDataset(u"default"_s, content, name));
        QVERIFY(uploaded);
        QCOMPARE(uploaded->id, u"f1"_s);

        const auto request = world->service.requests().constFirst();
        QCOMPARE(request.target, QByteArray("/v1/files?workspace_id=default"));
        QCOMPARE(request.header("Authorization"), "Bearer " + session.token->toUtf8());
        QVERIFY(request.header("User-Agent") != "Quillmere-Studio/1.0");
        const QByteArray lead = "multipart/form-data; boundary=";
        const QByteArray type = request.header("Content-Type");
        QVERIFY(type.startsWith(lead));
        const QByteArray boundary = type.mid(lead.size());
        static const QRegularExpression uuid(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
        QVERIFY(uuid.match(QString::fromLatin1(boundary)).hasMatch());
        QCOMPARE(request.body,
            "--" + boundary + "\r\nContent-Disposition: form-data; name=\"file\"; filename=\"" + name.toUtf8()
                + "\"\r\nContent-Type: application/octet-stream\r\n\r\n" + content + "\r\n--" + boundary + "--\r\n");
    }

    void usesAFreshBoundaryEachTime()
    {
        world->service.on("POST /v1/files").answers(200, file);
        QVERIFY(*Ended(client().uploadDataset(u"default"_s, "x", u"a.json"_s)));
        QVERIFY(*Ended(client().uploadDataset(u"default"_s, "x", u"a.json"_s)));
        QVERIFY(world->service.requests().at(0).header("Content-Type")
            != world->service.requests().at(1).header("Content-Type"));
    }

    void uploadsWithoutATokenToo()
    {
        world->service.on("POST /v1/files").answers(200, file);
        QVERIFY(*Ended(client().uploadDataset(u"default"_s, "x", u"a.json"_s)));
        QVERIFY(!world->service.requests().constFirst().hasHeader("Authorization"));
    }

    void looksAtNoStatusOfAnUpload_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("succeeds");
        QTest::newRow("500 with an error") << 500 << QByteArray("{\"detail\": \"Boom\"}") << false;
        QTest::newRow("401") << 401 << QByteArray("{\"detail\": \"Who?\"}") << false;
        QTest::newRow("500 with a file") << 500 << file << true;
        QTest::newRow("302 with a file") << 302 << file << true;
    }
    void looksAtNoStatusOfAnUpload()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(bool, succeeds);
        world->service.on("POST /v1/files").answers(status, body);
        Ended upload(client().uploadDataset(u"default"_s, "x", u"a.json"_s));
        QCOMPARE((*upload).succeeded(), succeeds);
        if (!succeeds) {
            QCOMPARE(upload.failure().kind(), Failure::Kind::Decoding);
        }
        QCOMPARE(session.logouts, 0);
        QCOMPARE(world->service.requests().size(), 1);
    }

    void refusesANameThatWouldForgeTheFrame_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("CR") << u"a\rb"_s;
        QTest::newRow("LF") << u"a\nb"_s;
        QTest::newRow("NUL") << u"a\0b"_s;
    }
    void refusesANameThatWouldForgeTheFrame()
    {
        QFETCH(QString, name);
        Ended upload(client().uploadDataset(u"default"_s, "x", name));
        QVERIFY(!*upload);
        QCOMPARE(upload.failure().localizedDescription(), u"Invalid file name"_s);
        QVERIFY(world->service.requests().isEmpty());
    }

private:
    static QuillmereAPIClient &client() { return QuillmereAPIClient::shared(); }

    NotedSession session;
    std::unique_ptr<PlatformEnvironment> world;
};

QTEST_GUILESS_MAIN(tst_QuillmereAPIClient)

#include "tst_QuillmereAPIClient.moc"
