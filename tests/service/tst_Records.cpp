#include "identity/LoginRecords.h"
#include "service/Json.h"
#include "service/Records.h"

#include <QJsonDocument>
#include <QTest>

#include <algorithm>
#include <functional>

using namespace quillmere;
using namespace Qt::StringLiterals;

static_assert(Decodable<APIErrorResponse> && !Encodable<APIErrorResponse>, "What the service says is only received.");
static_assert(Encodable<FineTuneJob> && Encodable<DatasetInfo> && Encodable<SubscriptionInfo> && Encodable<UserProfile> && Encodable<ModelInfo> && Encodable<ModelDownloadInfo> && Encodable<ModelsResponse> && Encodable<DatasetsResponse> && Encodable<FineTuneJobsResponse> && Encodable<LoginInitResponse> && Encodable<TOTPLoginResponse> && Encodable<APIErrorMessage>);

namespace {

QDateTime may(int day, int hour)
{
    return QDateTime(QDate(2024, 5, day), QTime(hour, 0), Qt::UTC);
}

template <typename Record> Record read(const QByteArray &json, KeyCoding keys = KeyCoding::SnakeCase)
{
    auto decoded = decode<Record>(json, keys);
    if (!decoded) {
        QTest::qFail(qPrintable(decoded.failure().localizedDescription()), __FILE__, __LINE__);
        return {};
    }
    return *std::move(decoded);
}

QByteArray job(const QByteArray &rest)
{
    return R"({"id":"j","name":"n","status":"running","progress":66)" + rest + '}';
}

// The sorted JSON of each record with all of its fields, and a way there and back.
using ThereAndBack = std::function<QByteArray(const QByteArray &)>;

template <typename Record> ThereAndBack thereAndBack(KeyCoding keys)
{
    return [keys](const QByteArray &json) { return *encode(read<Record>(json, keys), keys); };
}

// Each record with every field it has, and how it fails once any required field is gone.
struct Wire {
    const char *name;
    ThereAndBack thereAndBack;
    QByteArray json;
};

QList<Wire> wires()
{
    const auto service = KeyCoding::SnakeCase;
    const auto plain = KeyCoding::Plain;
    return {
        {"FineTuneJob", thereAndBack<FineTuneJob>(service),
            R"({"completed_at":"2024-05-02T15:00:00Z","config":{"base_model":"b","lora":{"rank":8}},)"
            R"("created_at":"2024-05-01T12:00:00Z","error_message":"e","id":"j","metrics":{"loss":[0.5,1,null]},)"
            R"("name":"n","progress":66,"started_at":"2024-05-01T13:00:00Z","status":"failed"})"},
        {"DatasetInfo", thereAndBack<DatasetInfo>(service),
            R"({"bytes":9007199254740993,"created_at":"2024-05-01T12:00:00Z","filename":"f","id":"d","purpose":"p"})"},
        {"SubscriptionInfo", thereAndBack<SubscriptionInfo>(service),
            R"({"expires_at":"2024-05-01T12:00:00Z","features":["a","b"],"is_active":true,"plan":"pro"})"},
        {"UserProfile", thereAndBack<UserProfile>(service),
            R"({"avatar_url":"https:a","email":"x","id":"u1","name":"Ada"})"},
        {"ModelInfo", thereAndBack<ModelInfo>(service),
            R"({"context_length":8192,"description":"d","download_url":"u","id":"m","name":"n",)"
            R"("parameters":8000000000,"size_bytes":16000000000,"supports_finetuning":false})"},
        {"ModelDownloadInfo", thereAndBack<ModelDownloadInfo>(service),
            R"({"checksum":"c","download_url":"u","expires_at":"2024-05-01T12:00:00Z","size_bytes":4096})"},
        {"ModelsResponse", thereAndBack<ModelsResponse>(service), R"({"data":[{"id":"m","name":"n"}]})"},
        {"DatasetsResponse", thereAndBack<DatasetsResponse>(service),
            R"({"data":[{"bytes":1,"created_at":"2024-05-01T12:00:00Z","filename":"f","id":"d","purpose":"p"}]})"},
        {"FineTuneJobsResponse", thereAndBack<FineTuneJobsResponse>(service),
            R"({"data":[{"created_at":"2024-05-01T12:00:00Z","id":"j","name":"n","progress":0,"status":"s"}]})"},
        {"LoginInitResponse", thereAndBack<LoginInitResponse>(plain),
            R"({"mode":"setup","qrCode":"data:,","secret":"S"})"},
        {"TOTPLoginResponse", thereAndBack<TOTPLoginResponse>(plain), R"({"redirectUrl":"https:r"})"},
        {"APIErrorMessage", thereAndBack<APIErrorMessage>(plain), R"({"error":"Nope"})"},
    };
}

} // namespace

class tst_Records : public QObject {
    Q_OBJECT

private slots:
    void comesBackFromTheWireAsItWent_data()
    {
        QTest::addColumn<qsizetype>("index");

        const auto all = wires();
        for (qsizetype i = 0; i < all.size(); ++i) {
            QTest::newRow(all[i].name) << i;
        }
    }

    void comesBackFromTheWireAsItWent()
    {
        QFETCH(qsizetype, index);
        const Wire wire = wires()[index];

        QCOMPARE(wire.thereAndBack(wire.json), wire.json);
    }

    void failsOnlyWithoutWhatIsRequired_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<std::function<bool(QByteArray)>>("decodes");
        QTest::addColumn<QStringList>("required");

        const auto row = [](const char *name, auto record, KeyCoding keys, const QStringList &required) {
            const auto all = wires();
            const auto wire = std::find_if(
                all.begin(), all.end(), [name](const Wire &wire) { return qstrcmp(wire.name, name) == 0; });
            QTest::newRow(name) << wire->json << std::function<bool(QByteArray)>([keys](const QByteArray &json) {
                return decode<decltype(record)>(json, keys).succeeded();
            }) << required;
        };
        const auto service = KeyCoding::SnakeCase;
        const auto plain = KeyCoding::Plain;
        row("FineTuneJob", FineTuneJob(), service, {u"created_at"_s, u"id"_s, u"name"_s, u"progress"_s, u"status"_s});
        row("DatasetInfo", DatasetInfo(), service, {u"bytes"_s, u"created_at"_s, u"filename"_s, u"id"_s, u"purpose"_s});
        row("SubscriptionInfo", SubscriptionInfo(), service, {u"features"_s, u"is_active"_s, u"plan"_s});
        row("UserProfile", UserProfile(), service, {u"email"_s, u"id"_s});
        row("ModelInfo", ModelInfo(), service, {u"id"_s, u"name"_s});
        row("ModelDownloadInfo", ModelDownloadInfo(), service, {u"download_url"_s, u"expires_at"_s, u"size_bytes"_s});
        row("ModelsResponse", ModelsResponse(), service, {u"data"_s});
        row("DatasetsResponse", DatasetsResponse(), service, {u"data"_s});
        row("FineTuneJobsResponse", FineTuneJobsResponse(), service, {u"data"_s});
        row("LoginInitResponse", LoginInitResponse(), plain, {u"mode"_s});
        row("TOTPLoginResponse", TOTPLoginResponse(), plain, {u"redirectUrl"_s});
        row("APIErrorMessage", APIErrorMessage(), plain, {u"error"_s});
    }

    // Takes away each key in turn, then makes it null, then gives it a type that no field but a dynamic one has.
    void failsOnlyWithoutWhatIsRequired()
    {
        QFETCH(QByteArray, json);
        QFETCH(std::function<bool(QByteArray)>, decodes);
        QFETCH(QStringList, required);
        const QJsonObject whole = QJsonDocument::fromJson(json).object();

        const auto decodesWith = [&](const QString &key, const QJsonValue &value) {
            QJsonObject changed = whole;
            changed.insert(key, value);
            return decodes(QJsonDocument(changed).toJson());
        };
        for (const QString &key : whole.keys()) {
            const bool isOptional = !required.contains(key);
            QJsonObject without = whole;
            without.remove(key);
            QVERIFY2(decodes(QJsonDocument(without).toJson()) == isOptional, qPrintable(key));
            QVERIFY2(decodesWith(key, QJsonValue::Null) == isOptional, qPrintable(key));
            QVERIFY2(!decodesWith(key, QJsonArray{QJsonArray()}), qPrintable(key));
        }
        QCOMPARE_GE(whole.size(), required.size());
    }

    void readsAJobWithAllItsFields()
    {
        const auto job = read<FineTuneJob>(
            R"({"id":"ftjob-1","name":"Support","status":"completed","progress":100,)"
            R"("config":{"base_model":"llama","learning_rate":0.0002},"metrics":{"final_loss":0.25},)"
            R"("error_message":"none","started_at":"2024-05-01T13:00:00Z","completed_at":"2024-05-02T15:00:00Z",)"
            R"("created_at":"2024-05-01T12:00:00Z"})");

        QCOMPARE(job.id, u"ftjob-1"_s);
        QCOMPARE(job.name, u"Support"_s);
        QCOMPARE(job.status, u"completed"_s);
        QCOMPARE(job.progress, 100);
        QCOMPARE(job.config->toMap().keys(), QStringList({u"base_model"_s, u"learning_rate"_s}));
        QCOMPARE(job.config->toMap().value(u"base_model"_s).value, QVariant(u"llama"_s));
        QCOMPARE(job.metrics->toMap().value(u"final_loss"_s).value, QVariant(0.25));
        QCOMPARE(job.errorMessage, std::optional(u"none"_s));
        QCOMPARE(job.startedAt, std::optional(may(1, 13)));
        QCOMPARE(job.completedAt, std::optional(may(2, 15)));
        QCOMPARE(job.createdAt, may(1, 12));
    }

    void readsADataset()
    {
        const auto dataset =
            read<DatasetInfo>(R"({"id":"file-1","filename":"a.jsonl","purpose":"fine-tune","bytes":9007199254740993,)"
                              R"("created_at":"2024-05-01T12:00:00Z"})");

        QCOMPARE(dataset.id, u"file-1"_s);
        QCOMPARE(dataset.filename, u"a.jsonl"_s);
        QCOMPARE(dataset.purpose, u"fine-tune"_s);
        QCOMPARE(dataset.bytes, 9007199254740993);
        QCOMPARE(dataset.createdAt, may(1, 12));
    }

    void readsASubscription()
    {
        const auto subscription = read<SubscriptionInfo>(
            R"({"is_active":true,"plan":"pro","expires_at":"2024-05-02T00:00:00Z","features":["a","b"]})");

        QVERIFY(subscription.isActive);
        QCOMPARE(subscription.plan, u"pro"_s);
        QCOMPARE(subscription.expiresAt, std::optional(may(2, 0)));
        QCOMPARE(subscription.features, QStringList({u"a"_s, u"b"_s}));
    }

    void readsAModel()
    {
        const auto model = read<ModelInfo>(
            R"({"id":"m","name":"Llama","description":"d","parameters":8000000000,"context_length":8192,)"
            R"("supports_finetuning":true,"download_url":"https:d","size_bytes":16000000000})");

        QCOMPARE(model.id, u"m"_s);
        QCOMPARE(model.name, u"Llama"_s);
        QCOMPARE(model.description, std::optional(u"d"_s));
        QCOMPARE(model.parameters, std::optional<qint64>(8000000000));
        QCOMPARE(model.contextLength, std::optional<qint64>(8192));
        QCOMPARE(model.supportsFinetuning, std::optional(true));
        QCOMPARE(model.downloadUrl, std::optional(u"https:d"_s));
        QCOMPARE(model.sizeBytes, std::optional<qint64>(16000000000));
    }

    void readsADownload()
    {
        const auto download = read<ModelDownloadInfo>(
            R"({"download_url":"https:d","expires_at":"2024-05-01T14:00:00+02:00","size_bytes":4096})");

        QCOMPARE(download.downloadUrl, u"https:d"_s);
        QCOMPARE(download.expiresAt, may(1, 12));
        QCOMPARE(download.sizeBytes, 4096);
        QVERIFY(!download.checksum);
    }

    void readsAUserWithoutNameAndAvatar()
    {
        const auto user = read<UserProfile>(R"({"id":"u1","email":"x"})");

        QCOMPARE(user.id, u"u1"_s);
        QCOMPARE(user.email, u"x"_s);
        QVERIFY(!user.name);
        QVERIFY(!user.avatarUrl);
    }

    void takesANullAvatarForNone()
    {
        QVERIFY(!read<UserProfile>(R"({"id":"u1","email":"x","avatar_url":null})").avatarUrl);
    }

    void takesAnAvatarUnderEitherKey()
    {
        QCOMPARE(read<UserProfile>(R"({"id":"u1","email":"x","avatar_url":"a"})").avatarUrl, std::optional(u"a"_s));
        QCOMPARE(read<UserProfile>(R"({"id":"u1","email":"x","avatarUrl":"a"})").avatarUrl, std::optional(u"a"_s));
    }

    void keepsAnEmptyTextApartFromNone()
    {
        QCOMPARE(read<UserProfile>(R"({"id":"","email":"","name":""})").name, std::optional(u""_s));
    }

    void needsTheCreationDateOfAJobButNotItsStart()
    {
        const auto without = decode<FineTuneJob>(job(R"(,"started_at":"2024-05-01T12:00:00Z")"), KeyCoding::SnakeCase);
        QVERIFY(!without);
        QCOMPARE(without.failure().localizedDescription(),
            u"The reply could not be read: FineTuneJob.created_at is missing."_s);

        QVERIFY(!read<FineTuneJob>(job(R"(,"created_at":"2024-05-01T12:00:00Z")")).startedAt);
    }

    void failsAWholeListForOneBadJob_data()
    {
        QTest::addColumn<QByteArray>("job");
        QTest::addColumn<QString>("field");

        QTest::newRow("date with a fraction")
            << job(R"(,"created_at":"2024-05-01T12:00:00.123Z")") << u"created_at is not a date with time and zone"_s;
        QTest::newRow("date without a time")
            << job(R"(,"created_at":"2024-05-01")") << u"created_at is not a date with time and zone"_s;
        QTest::newRow("bad date of an optional field")
            << job(R"(,"created_at":"2024-05-01T12:00:00Z","started_at":"soon")")
            << u"started_at is not a date with time and zone"_s;
        QTest::newRow("progress with a fraction") << job(R"(,"created_at":"2024-05-01T12:00:00Z","progress":66.5)")
                                                  << u"progress is not a whole number of 64 bits"_s;
        QTest::newRow("configuration that is no map")
            << job(R"(,"created_at":"2024-05-01T12:00:00Z","config":[])") << u"config is not an object"_s;
    }

    void failsAWholeListForOneBadJob()
    {
        QFETCH(QByteArray, job);
        QFETCH(QString, field);
        const QByteArray good = ::job(R"(,"created_at":"2024-05-01T12:00:00Z")");

        const auto decoded =
            decode<FineTuneJobsResponse>("{\"data\":[" + good + ',' + job + ',' + good + "]}", KeyCoding::SnakeCase);

        QVERIFY(!decoded);
        QCOMPARE(decoded.failure().localizedDescription(),
            u"The reply could not be read: FineTuneJobsResponse.data[1]."_s + field + u'.');
    }

    void readsAnEmptyList() { QVERIFY(read<FineTuneJobsResponse>(R"({"data":[]})").data.isEmpty()); }

    void readsWhatTheServiceSaysOfARefusal()
    {
        QCOMPARE(read<APIErrorResponse>(R"({"detail":"Boom"})").detail, u"Boom"_s);
        QVERIFY(!decode<APIErrorResponse>(R"({"error":"Boom"})", KeyCoding::SnakeCase));
        QVERIFY(!decode<APIErrorResponse>(R"({"detail":["Boom"]})", KeyCoding::SnakeCase));
        QVERIFY(!decode<APIErrorResponse>("<html>", KeyCoding::SnakeCase));
    }

    void readsTheStepsOfSigningIn()
    {
        const auto setup = read<LoginInitResponse>(
            R"({"mode":"setup","qrCode":"data:image/png;base64,AAAA","secret":"S"})", KeyCoding::Plain);
        QCOMPARE(setup.mode, u"setup"_s);
        QCOMPARE(setup.qrCode, std::optional(u"data:image/png;base64,AAAA"_s));
        QCOMPARE(setup.secret, std::optional(u"S"_s));

        const auto login = read<LoginInitResponse>(R"({"mode":"login"})", KeyCoding::Plain);
        QVERIFY(!login.qrCode && !login.secret);

        QCOMPARE(read<TOTPLoginResponse>(R"({"redirectUrl":"https:r"})", KeyCoding::Plain).redirectUrl, u"https:r"_s);
        QCOMPARE(read<APIErrorMessage>(R"({"error":"Nope"})", KeyCoding::Plain).error, u"Nope"_s);
    }

    void doesNotConvertTheKeysOfSigningIn()
    {
        QVERIFY(!decode<TOTPLoginResponse>(R"({"redirect_url":"x"})", KeyCoding::Plain));
        QVERIFY(!read<LoginInitResponse>(R"({"mode":"setup","qr_code":"x"})", KeyCoding::Plain).qrCode);
    }
};

QTEST_APPLESS_MAIN(tst_Records)
#include "tst_Records.moc"
