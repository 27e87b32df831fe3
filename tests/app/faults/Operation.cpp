#include "faults/Operation.h"

#include "app/UpdateManager.h"
#include "identity/LoginViewModel.h"
#include "platform/Alerts.h"
#include "platform/Environment.h"
#include "service/QuillmereAPIClient.h"

#include <QStringList>

#include <optional>

using namespace Qt::StringLiterals;

namespace quillmere::testing {

namespace {

const auto unexpectedWords = u"An unexpected error occurred: "_s;
const auto unreadableWords = u"The reply could not be read: "_s;

// The limits that have words of their own; all others of a broken connection are the library's.
bool isLimit(const QString &words)
{
    return words == u"The request timed out." || words == u"The reply took too long."
        || words == u"The reply is too large.";
}

QString endingOf(const Failure &failure)
{
    const QString words = failure.localizedDescription();
    switch (failure.kind()) {
    case Failure::Kind::Service:
    case Failure::Kind::SignIn:
        return words;
    case Failure::Kind::Decoding:
        return words.startsWith(unreadableWords) ? ending::unreadable : words;
    case Failure::Kind::Transport:
        return isLimit(words) || words.isEmpty() ? words : ending::brokenOff;
    case Failure::Kind::Encoding:
    case Failure::Kind::File:
        break;
    }
    return u"(another kind of failure)"_s;
}

// What the sign-in shows, in which the kind of a failure can be told by its words alone.
QString endingOf(const QString &message)
{
    if (!message.startsWith(unexpectedWords)) {
        return message;
    }
    const QString words = message.mid(unexpectedWords.size());
    if (words.startsWith(unreadableWords)) {
        return ending::unexpected(ending::unreadable);
    }
    return ending::unexpected(isLimit(words) || words.isEmpty() ? words : ending::brokenOff);
}

template <typename T> class ClientCall : public Call {
public:
    using Gist = QString (*)(const T &);

    ClientCall(QCoro::Task<Result<T>> task, Gist gist) : m_gist(gist)
    {
        std::move(task).then([outcome = m_outcome](Result<T> result) { *outcome = std::move(result); });
    }

    bool hasEnded() const override { return m_outcome->has_value(); }
    QString ending() const override
    {
        const Result<T> &result = **m_outcome;
        return result ? ending::gave(m_gist(*result)) : endingOf(result.failure());
    }

private:
    Gist m_gist;
    std::shared_ptr<std::optional<Result<T>>> m_outcome = std::make_shared<std::optional<Result<T>>>();
};

template <typename T> std::unique_ptr<Call> called(QCoro::Task<Result<T>> task, QString (*gist)(const T &))
{
    return std::make_unique<ClientCall<T>>(std::move(task), gist);
}

class EmailCall : public Call {
public:
    EmailCall()
    {
        m_model.setEmail(u"ada@example.org"_s);
        m_model.submitEmail();
    }

    bool hasEnded() const override { return !m_model.isLoading(); }
    QString ending() const override
    {
        if (m_model.errorMessage()) {
            return m_model.loginStep() == LoginViewModel::LoginStep::Email ? endingOf(*m_model.errorMessage())
                                                                           : u"(a failure and the next step)"_s;
        }
        return m_model.loginStep() == LoginViewModel::LoginStep::Authenticator ? ending::gave(m_model.totpSecret())
                                                                               : ending::nothing;
    }

private:
    LoginViewModel m_model;
};

// The browser is canceled as soon as it opens.
class CodeCall : public Call {
public:
    CodeCall()
    {
        Environment::current().authenticateInBrowser = [page = m_page](
                                                           QUrl url, QString) -> QCoro::Task<BrowserOutcome> {
            *page = url;
            co_return BrowserOutcome{BrowserOutcome::Kind::Canceled, {}, {}};
        };
        m_model.setEmail(u"ada@example.org"_s);
        m_model.setAuthenticatorCode(u"123456"_s);
        m_model.submitCode();
    }

    bool hasEnded() const override { return !m_model.isLoading(); }
    QString ending() const override
    {
        if (m_model.errorMessage()) {
            return m_page->isEmpty() ? endingOf(*m_model.errorMessage()) : u"(a failure and a page)"_s;
        }
        return m_page->isEmpty() ? ending::nothing : ending::gave(m_page->toString());
    }

private:
    std::shared_ptr<QUrl> m_page = std::make_shared<QUrl>();
    LoginViewModel m_model;
};

class UpdateCall : public Call {
public:
    explicit UpdateCall(const FakeClock &clock) : m_clock(clock) { UpdateManager::shared().checkForUpdates(); }
    ~UpdateCall() override { Alerts::shared().answer(1); }

    // It tells nobody that it has ended; but what it waits for has a limit as long as it waits.
    bool hasEnded() const override { return m_clock.scheduledCount() == 0; }
    QString ending() const override
    {
        const auto &manager = UpdateManager::shared();
        return Alerts::shared().isUp() ? ending::gave(*manager.latestVersion() + u' ' + *manager.downloadURL())
                                       : ending::nothing;
    }

private:
    const FakeClock &m_clock;
};

template <typename Record> QString idsOf(const QList<Record> &records)
{
    QStringList ids;
    for (const Record &record : records) {
        ids.append(record.id);
    }
    return ids.join(u", "_s);
}

template <typename Response> QString idsIn(const Response &response)
{
    return idsOf(response.data);
}

template <typename Record> QString idOf(const Record &record)
{
    return record.id;
}

QuillmereAPIClient &client()
{
    return QuillmereAPIClient::shared();
}

const QByteArray file = R"({"id": "f2", "filename": "b.csv", "purpose": "fine-tune", "bytes": 7,
    "created_at": "2026-11-20T11:00:00Z"})";

const QByteArray job = R"({"id": "ft-2", "name": "Triage", "status": "running", "progress": 40,
    "config": {"epochs": 3, "layers": ["a", null]}, "metrics": {"loss": 0.5}, "error_message": "none so far",
    "started_at": "2026-11-20T11:00:00Z", "completed_at": "2026-11-20T11:30:00+02:00",
    "created_at": "2026-11-20T10:00:00Z"})";

const QByteArray user =
    R"({"id": "u1", "email": "ada@example.org", "name": "Ada", "avatar_url": "https://a.example/a.png"})";

// The fields of a record that stands at a path; at the root that is empty.
QList<ReplyField> at(const QByteArray &path, QList<ReplyField> fields)
{
    for (ReplyField &field : fields) {
        field.path.prepend(path + '/');
    }
    fields.prepend({path, Form::Record, true});
    return fields;
}

const QList<ReplyField> fileFields{{"id", Form::Text, true}, {"filename", Form::Text, true},
    {"purpose", Form::Text, true}, {"bytes", Form::Whole, true}, {"created_at", Form::Date, true}};

const QList<ReplyField> jobFields{{"id", Form::Text, true}, {"name", Form::Text, true}, {"status", Form::Text, true},
    {"progress", Form::Whole, true}, {"config", Form::Map}, {"config/epochs", Form::Anything},
    {"config/layers", Form::Anything}, {"config/layers/0", Form::Anything}, {"config/layers/1", Form::Anything},
    {"metrics", Form::Map}, {"metrics/loss", Form::Anything}, {"error_message", Form::Text}, {"started_at", Form::Date},
    {"completed_at", Form::Date}, {"created_at", Form::Date, true}};

const QList<ReplyField> modelFields{{"id", Form::Text, true}, {"name", Form::Text, true}, {"description", Form::Text},
    {"parameters", Form::Whole}, {"context_length", Form::Whole}, {"supports_finetuning", Form::Flag},
    {"download_url", Form::Text}, {"size_bytes", Form::Whole}};

const QList<ReplyField> userFields{
    {"id", Form::Text, true}, {"email", Form::Text, true}, {"name", Form::Text}, {"avatar_url", Form::Text}};

QList<ReplyField> inList(const QList<ReplyField> &fields)
{
    return QList<ReplyField>{{"data", Form::ListOfRecords, true}} + at("data/0", fields);
}

} // namespace

namespace ending {

QString unexpected(const QString &ending)
{
    return u"unexpected: "_s + ending;
}

QString gave(const QString &gist)
{
    return u"gave "_s + gist;
}

} // namespace ending

const QList<Operation> &operations()
{
    static const QList<Operation> all{
        {"listModels", Family::Get, "GET /v1/models", false,
            R"({"data": [{"id": "m1", "name": "Llama", "description": "Small", "parameters": 7000000000,
                "context_length": 8192, "supports_finetuning": true, "download_url": "https://a.example/m1",
                "size_bytes": 9007199254740993}]})",
            u"m1"_s, inList(modelFields),
            [](const FakeClock &) { return called(client().listModels(), &idsIn<ModelsResponse>); }},
        {"getModelDownload", Family::Get, "GET /v1/models/m1/download", true,
            R"({"download_url": "https://a.example/m1", "expires_at": "2026-11-20T13:00:00Z", "size_bytes": 14,
                "checksum": "sha256:00"})",
            u"https://a.example/m1"_s,
            {{"download_url", Form::Text, true}, {"expires_at", Form::Date, true}, {"size_bytes", Form::Whole, true},
                {"checksum", Form::Text}},
            [](const FakeClock &) {
                return called<ModelDownloadInfo>(client().getModelDownload(u"m1"_s),
                    [](const ModelDownloadInfo &download) { return download.downloadUrl; });
            }},
        {"listDatasets", Family::Get, "GET /v1/files", true, R"({"data": [)" + file + "]}", u"f2"_s, inList(fileFields),
            [](const FakeClock &) { return called(client().listDatasets(u"default"_s), &idsOf<DatasetInfo>); }},
        {"uploadDataset", Family::Upload, "POST /v1/files", true, file, u"f2"_s, fileFields,
            [](const FakeClock &) {
                return called(
                    client().uploadDataset(u"default"_s, QByteArray(300'000, 'x'), u"b.csv"_s), &idOf<DatasetInfo>);
            }},
        {"listFineTuneJobs", Family::Get, "GET /v1/fine-tuning/jobs", true, R"({"data": [)" + job + "]}", u"ft-2"_s,
            inList(jobFields),
            [](const FakeClock &) { return called(client().listFineTuneJobs(), &idsIn<FineTuneJobsResponse>); }},
        {"cancelFineTuneJob", Family::Post, "POST /v1/fine-tuning/jobs/ft-2/cancel", true, job, u"ft-2"_s, jobFields,
            [](const FakeClock &) { return called(client().cancelFineTuneJob(u"ft-2"_s), &idOf<FineTuneJob>); }},
        {"getCurrentUser", Family::Get, "GET /v1/auth/me", true, user, u"u1"_s, userFields,
            [](const FakeClock &) { return called(client().getCurrentUser(), &idOf<UserProfile>); }},
        {"request with a body", Family::Post, "POST /v1/anything", true, user, u"u1"_s, userFields,
            [](const FakeClock &) {
                const UserProfile body{u"u1"_s, u"ada@example.org"_s, std::nullopt, std::nullopt};
                return called(client().request<UserProfile>(u"anything"_s, u"POST"_s, body, true), &idOf<UserProfile>);
            }},
        {"submitEmail", Family::Email, "POST /api/auth/user/login-init", false,
            R"({"mode": "setup", "qrCode": "data:image/png;base64,UVI=", "secret": "S3CRET"})", u"S3CRET"_s,
            {{"mode", Form::Text, true}, {"qrCode", Form::Text}, {"secret", Form::Text}},
            [](const FakeClock &) { return std::make_unique<EmailCall>(); }},
        {"submitCode", Family::Code, "POST /api/auth/user/totp-login-v2", false,
            R"({"redirectUrl": "https://login.example/desktop-login?ticket=t"})",
            u"https://login.example/desktop-login?ticket=t"_s, {{"redirectUrl", Form::Page, true}},
            [](const FakeClock &) { return std::make_unique<CodeCall>(); }},
        {"checkForUpdates", Family::Update, "GET /api/downloads/version", false,
            R"({"version": "9.9.9", "web_download_url": "https://a.example/download"})",
            u"9.9.9 https://a.example/download"_s,
            {{"version", Form::NewerVersion, true}, {"web_download_url", Form::Text, true}},
            [](const FakeClock &clock) { return std::make_unique<UpdateCall>(clock); }},
    };
    return all;
}

} // namespace quillmere::testing
