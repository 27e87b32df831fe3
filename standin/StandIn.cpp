#include "standin/StandIn.h"

#include "standin/Connection.h"
#include "standin/SignIn.h"
#include "standin/Totp.h"
#include "standin/World.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;
using standin::Connection;
using standin::Delivery;
using standin::Exchange;
using standin::Fault;
using standin::KiB;
using standin::Reply;

namespace {

constexpr qint64 LargestBody = 1024 * KiB;
constexpr qint64 LargestUpload = 2048 * KiB * KiB + 64 * KiB; // 2 GiB and the frame around them
constexpr qint64 KeptOfUpload = 64 * KiB;

bool isUpload(const StandIn::Request &request)
{
    return request.method == "POST" && request.path() == "/v1/files";
}

} // namespace

struct StandIn::Private : standin::Service {
    // What an operation is told beside the request: whose it is, and the identifier in the path.
    struct Call {
        const Exchange &exchange;
        QString account;
        QString id;
    };
    struct Operation {
        QByteArray method;
        QRegularExpression path;
        bool needsToken;
        std::function<Reply(const Call &)> answer;
    };

    explicit Private(StandIn *service) : q(service)
    {
        const auto add = [this](const QByteArray &method, const QString &path, bool needsToken, auto answer) {
            operations.append(
                {method, QRegularExpression(QRegularExpression::anchoredPattern(path)), needsToken, answer});
        };
        add("GET", u"/v1/models"_s, false, [this](const Call &) { return world.models(); });
        add("GET", u"/v1/models/(.+)/download"_s, true,
            [this](const Call &call) { return world.modelDownload(call.id); });
        add("GET", u"/v1/files"_s, true, [this](const Call &call) { return listFiles(call); });
        add("POST", u"/v1/files"_s, true, [this](const Call &call) { return takeFile(call); });
        add("GET", u"/v1/fine-tuning/jobs"_s, true, [this](const Call &call) { return world.jobs(call.account); });
        add("POST", u"/v1/fine-tuning/jobs/(.+)/cancel"_s, true,
            [this](const Call &call) { return world.cancelJob(call.account, call.id); });
        add("GET", u"/v1/auth/me"_s, true, [this](const Call &call) { return world.user(call.account); });
        add("POST", u"/api/auth/user/login-init"_s, false,
            [this](const Call &call) { return signIn.loginInit(call.exchange.request); });
        add("POST", u"/api/auth/user/totp-login-v2"_s, false,
            [this](const Call &call) { return signIn.checkCode(call.exchange.request, q->origin()); });
        add("GET", u"/desktop-login"_s, false, [this](const Call &call) { return signIn.page(call.exchange.request); });
        add("GET", u"/api/downloads/version"_s, false, [this](const Call &) { return Reply::json(200, version); });
    }

    // What connections ask

    void begins(Exchange &exchange) override
    {
        const Request &request = exchange.request;
        exchange.fault = faults.take(request);
        exchange.largestBody = isUpload(request) ? LargestUpload : LargestBody;
        exchange.keptBody = isUpload(request) && !keepsWholeBodies ? KeptOfUpload : exchange.largestBody;
        if (isUpload(request)) {
            exchange.form.emplace(request.header("Content-Type"));
        }
        emit q->requestBegins(request.method, request.target);
    }

    Delivery answer(Exchange &exchange) override
    {
        Reply reply;
        if (!exchange.fault || !exchange.fault->replaces) {
            reply = replyTo(exchange);
        }
        record(exchange.request);
        Delivery delivery = exchange.fault ? exchange.fault->bend(reply) : Delivery::of(reply);
        if (exchange.request.header("Connection").trimmed().toLower() == "close") {
            delivery.then = Delivery::Then::Closes;
        }
        return delivery;
    }

    void brokeOff(Exchange &exchange) override
    {
        exchange.request.complete = false;
        record(exchange.request);
    }

    void malformed(const QString &what) override { unexpected.append(u"malformed request: "_s + what); }

    void sent() override { emit q->replySent(); }

    void record(const Request &request)
    {
        requests.append(request);
        emit q->requestReceived(request);
    }

    // Routes

    Reply replyTo(const Exchange &exchange)
    {
        const Request &request = exchange.request;
        const QString path = QString::fromUtf8(request.path());
        if (takesFaultsOverHttp && path == u"/standin/faults") {
            return takeOrder(request);
        }

        QByteArrayList allowed;
        for (const Operation &operation : std::as_const(operations)) {
            const QRegularExpressionMatch match = operation.path.match(path);
            if (!match.hasMatch()) {
                continue;
            }
            if (operation.method != request.method) {
                allowed.append(operation.method);
                continue;
            }
            const QString account = signIn.accountOf(request);
            if (operation.needsToken && account.isNull()) {
                return notAuthenticated();
            }
            return operation.answer(
                {exchange, account, QString::fromUtf8(QByteArray::fromPercentEncoding(match.captured(1).toUtf8()))});
        }
        unexpected.append(QString::fromUtf8(request.method + ' ' + request.target));
        if (allowed.isEmpty()) {
            return Reply::detail(404, u"Not Found"_s);
        }
        Reply reply = Reply::detail(405, u"Method Not Allowed"_s);
        reply.headers = {{"Allow", allowed.join(", ")}};
        return reply;
    }

    static Reply notAuthenticated()
    {
        Reply reply = Reply::detail(401, u"Not authenticated"_s);
        reply.headers = {{"WWW-Authenticate", "Bearer"}};
        return reply;
    }

    Reply listFiles(const Call &call)
    {
        const QByteArray workspace = call.exchange.request.query("workspace_id");
        if (workspace.isEmpty()) {
            return Reply::detail(400, u"workspace_id is missing"_s);
        }
        return world.files(call.account, workspace);
    }

    Reply takeFile(const Call &call)
    {
        const QByteArray workspace = call.exchange.request.query("workspace_id");
        if (workspace.isEmpty()) {
            return Reply::detail(400, u"workspace_id is missing"_s);
        }
        if (!call.exchange.form->failure().isEmpty()) {
            return Reply::detail(400, call.exchange.form->failure());
        }
        Upload upload = call.exchange.form->upload();
        upload.workspace = workspace;
        uploads.append(upload);
        return world.addFile(call.account, upload);
    }

    // Web pages cannot send this content type to another origin, so that none of them can give orders here.
    Reply takeOrder(const Request &request)
    {
        if (request.method == "DELETE") {
            q->clearFaults();
            q->release();
            return {204, {}, {}, {}};
        }
        if (request.method != "POST") {
            Reply reply = Reply::detail(405, u"Method Not Allowed"_s);
            reply.headers = {{"Allow", "POST, DELETE"}};
            return reply;
        }
        if (request.header("Content-Type") != "application/json") {
            return Reply::detail(400, u"Content-Type must be application/json"_s);
        }
        const QString failure = standin::orderFromJson(*q, request.body);
        return failure.isEmpty() ? Reply{204, {}, {}, {}} : Reply::detail(400, failure);
    }

    void accept()
    {
        while (QTcpSocket *socket = server.nextPendingConnection()) {
            auto *connection = new Connection(socket, *this, q);
            connections.append(connection);
            connect(connection, &Connection::closed, q, [this, connection] {
                connections.removeOne(connection);
                connection->deleteLater();
                emit q->connectionClosed();
            });
        }
    }

    StandIn *q;
    std::function<QDateTime()> clock = [] { return QDateTime::currentDateTimeUtc(); };
    standin::SignIn signIn{[this] { return clock(); }};
    standin::World world{[this] { return clock(); }};
    standin::FaultBook faults;
    QByteArray version = R"({"version":"1.0.0","web_download_url":"https://www.quillmere.example/download"})";
    QList<Operation> operations;

    bool takesFaultsOverHttp = false;
    bool keepsWholeBodies = false;
    QList<Request> requests;
    QList<Upload> uploads;
    QStringList unexpected;

    QTimer progressTimer;
    QTimer dripTimer;
    QTcpServer server;
    QList<Connection *> connections;
};

StandIn::StandIn(QObject *parent) : QObject(parent), d(std::make_unique<Private>(this))
{
    connect(&d->server, &QTcpServer::newConnection, this, [this] { d->accept(); });
    connect(&d->progressTimer, &QTimer::timeout, this, [this] { d->world.step(); });
    connect(&d->dripTimer, &QTimer::timeout, this, &StandIn::drip);
}

StandIn::~StandIn()
{
    // A connection reports its end to us, for which it is too late here.
    for (Connection *connection : std::as_const(d->connections)) {
        connection->disconnect(this);
    }
    qDeleteAll(d->connections);
}

bool StandIn::listen(quint16 port)
{
    return d->server.listen(QHostAddress::LocalHost, port);
}

quint16 StandIn::port() const
{
    return d->server.serverPort();
}

QString StandIn::origin() const
{
    return u"http://127.0.0.1:%1"_s.arg(port());
}

QString StandIn::errorString() const
{
    return d->server.errorString();
}

QString StandIn::signsIn(const QString &email)
{
    return d->signIn.tokenFor(email);
}

void StandIn::revokesTokens()
{
    d->signIn.revokeTokens();
}

void StandIn::hasAccount(const QString &email, const QString &base32Secret)
{
    d->signIn.addAccount(email, standin::base32Decoded(base32Secret));
}

void StandIn::hasModels(const QByteArray &jsonArray)
{
    d->world.setModels(jsonArray);
}

void StandIn::hasJobs(const QByteArray &jsonArray)
{
    d->world.setJobs(jsonArray);
}

void StandIn::hasFiles(const QByteArray &jsonArray)
{
    d->world.setFiles(jsonArray);
}

void StandIn::hasUser(const QByteArray &jsonObject)
{
    d->world.setUser(jsonObject);
}

void StandIn::offersVersion(const QString &version, const QString &webDownloadUrl)
{
    d->version = QJsonDocument(QJsonObject{{u"version"_s, version}, {u"web_download_url"_s, webDownloadUrl}})
                     .toJson(QJsonDocument::Compact);
}

bool StandIn::trainingAdvances(const QString &jobId, int percent)
{
    return d->world.changeJob(jobId, [&](QJsonObject &job) { d->world.advanceJob(job, percent); });
}

bool StandIn::trainingFinishes(const QString &jobId)
{
    return d->world.changeJob(jobId, [&](QJsonObject &job) {
        d->world.advanceJob(job, 100);
        d->world.endJob(job, u"completed"_s);
    });
}

bool StandIn::trainingFails(const QString &jobId, const QString &errorMessage)
{
    return d->world.changeJob(jobId, [&](QJsonObject &job) {
        job[u"error_message"_s] = errorMessage;
        d->world.endJob(job, u"failed"_s);
    });
}

void StandIn::runsByItself(std::chrono::milliseconds step)
{
    step.count() > 0 ? d->progressTimer.start(step) : d->progressTimer.stop();
}

void StandIn::usesClock(std::function<QDateTime()> now)
{
    d->clock = std::move(now);
}

QString StandIn::totp(const QString &base32Secret, const QDateTime &at)
{
    const QByteArray secret = standin::base32Decoded(base32Secret);
    return secret.isEmpty() ? QString() : standin::totpCode(secret, at);
}

StandIn::Route StandIn::on(const QByteArray &route, int times)
{
    return {*this, route, times};
}

void StandIn::order(const QByteArray &route, const Fault &fault)
{
    d->faults.add(route, fault);
}

void StandIn::clearFaults()
{
    d->faults.clear();
}

void StandIn::release()
{
    const QList<Connection *> connections = d->connections;
    for (Connection *connection : connections) {
        connection->release();
    }
}

bool StandIn::drip()
{
    bool dripped = false;
    const QList<Connection *> connections = d->connections;
    for (Connection *connection : connections) {
        dripped = connection->drip() || dripped;
    }
    return dripped;
}

void StandIn::dripsEvery(std::chrono::milliseconds step)
{
    step.count() > 0 ? d->dripTimer.start(step) : d->dripTimer.stop();
}

void StandIn::takesFaultsOverHttp()
{
    d->takesFaultsOverHttp = true;
}

void StandIn::keepsWholeBodies()
{
    d->keepsWholeBodies = true;
}

QList<StandIn::Request> StandIn::requests() const
{
    return d->requests;
}

QList<StandIn::Request> StandIn::requests(const QByteArray &method, const QByteArray &path) const
{
    QList<Request> found;
    std::copy_if(d->requests.begin(), d->requests.end(), std::back_inserter(found),
        [&](const Request &request) { return request.method == method && request.path() == path; });
    return found;
}

QList<StandIn::Upload> StandIn::uploads() const
{
    return d->uploads;
}

QStringList StandIn::unexpectedRequests() const
{
    return d->unexpected;
}

void StandIn::forgetRequests()
{
    d->requests.clear();
    d->uploads.clear();
    d->unexpected.clear();
}

int StandIn::openConnections() const
{
    return int(d->connections.size());
}
