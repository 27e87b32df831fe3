#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QJsonValue>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace standin {
struct Fault;
}

// The Quillmere service in small, on a TCP port of 127.0.0.1: the API below /v1, the sign-in with its browser page, and
// the version check. docs/service.md tells the wire, docs/openapi.json describes every reply.
//
// It runs as a program of its own (quillmere-standin) for a first look at the application, and inside a test's process,
// on the thread that made it, where the test sets the scene with verbs of the domain ("has jobs", "training finishes"),
// orders failures (`on(route)`), and looks at what arrived. It starts with a full world: a catalog, jobs in every status
// and some files for whoever signs in. Nothing moves by itself unless told so with `runsByItself()`.
//
// Lists given by a test as JSON text are sent letter for letter until something changes them (a cancelled job, an
// upload), so that a test may send numbers and dates that no encoder would write.
class StandIn : public QObject {
    Q_OBJECT

public:
    using Headers = QList<std::pair<QByteArray, QByteArray>>;

    // One request as it came over the wire. Header names keep their letters and their order.
    struct Request {
        QByteArray method;
        QByteArray target; //< path and query, undecoded
        Headers headers;
        QByteArray body;      //< the first 64 KiB only of an upload, unless `keepsWholeBodies()`
        qint64 bodySize = 0;  //< bytes of the whole body
        bool complete = true; //< false when the connection ended before the body did

        QByteArray path() const;                         //< the target without its query
        QByteArray query(const QByteArray &name) const;  //< first value of that name, undecoded; null when absent
        bool hasHeader(const QByteArray &name) const;    //< names compare without regard to case
        QByteArray header(const QByteArray &name) const; //< first value of that name; null when absent
    };

    // A file that was taken in whole.
    struct Upload {
        QByteArray workspace;
        QString filename;
        qint64 bytes = 0;
        QByteArray sha256; //< of the content, raw 32 bytes
        QByteArray head;   //< the first 64 KiB of the content
    };

    class Route;

    explicit StandIn(QObject *parent = nullptr);
    ~StandIn() override;

    // Port 0 takes a free one. False, with `errorString()` set, when the port cannot be had.
    bool listen(quint16 port = 0);
    quint16 port() const;
    QString origin() const; //< "http://127.0.0.1:PORT", no trailing slash
    QString errorString() const;

    // The world

    // Returns an access token that speaks for this address, whether or not it has an authenticator.
    QString signsIn(const QString &email);
    // From now on every token given out so far is answered with 401.
    void revokesTokens();
    // An account whose authenticator is set up already, so that login init answers "login". Any domain will do.
    void hasAccount(const QString &email, const QString &base32Secret);
    // The catalog, as a JSON array of model objects.
    void hasModels(const QByteArray &jsonArray);
    // The jobs of every account, present and to come, as a JSON array of job objects.
    void hasJobs(const QByteArray &jsonArray);
    // The files of every account's workspace "default", as a JSON array of file objects.
    void hasFiles(const QByteArray &jsonArray);
    // What auth/me answers to everyone, as a JSON object.
    void hasUser(const QByteArray &jsonObject);
    void offersVersion(const QString &version, const QString &webDownloadUrl);

    // Sets the progress of a job, in per cent, wherever an account has it; a pending one starts. False: nobody has it.
    bool trainingAdvances(const QString &jobId, int percent);
    bool trainingFinishes(const QString &jobId);
    bool trainingFails(const QString &jobId, const QString &errorMessage);

    // Jobs move on at every step: running ones advance and finish, pending ones start. Zero stops it.
    void runsByItself(std::chrono::milliseconds step);
    // Where dates, codes and expiries take the time from; the system's clock at first.
    void usesClock(std::function<QDateTime()> now);

    // The code that an authenticator shows at that moment (RFC 6238: SHA-1, six digits, 30 seconds). Empty when the
    // secret is no base32 text (RFC 4648; case, blanks and padding do not matter).
    static QString totp(const QString &base32Secret, const QDateTime &at);

    // Failures

    static constexpr int Always = -1;

    // Orders a failure for requests to a route, "METHOD /path": `on("POST /v1/files", 1).answers(503)`. The path stands
    // for itself and all below it, the query plays no part, the longest fitting path wins. Orders for a number of
    // requests (`times`) are used up first, in the order given; then the lasting one holds, of which a route has one.
    Route on(const QByteArray &route, int times = Always);
    void clearFaults();
    // Lets replies that hang go on.
    void release();
    // Sends the next bytes of every dripping reply. False when there was none left to drip.
    bool drip();
    // Drips by a timer. Zero stops it.
    void dripsEvery(std::chrono::milliseconds step);
    // Takes orders for failures over HTTP at /standin/faults, for trying things by hand.
    void takesFaultsOverHttp();

    // Observation

    void keepsWholeBodies();
    // In the order in which they ended.
    QList<Request> requests() const;
    // Those to exactly this path, whatever their query.
    QList<Request> requests(const QByteArray &method, const QByteArray &path) const;
    QList<Upload> uploads() const;
    // Requests that no route and no order answers, and malformed ones, in words. A fixture that fails a test for them
    // catches addresses that nobody meant to ask.
    QStringList unexpectedRequests() const;
    void forgetRequests();
    int openConnections() const;

signals:
    // The head of a request is there, its body perhaps not yet.
    void requestBegins(const QByteArray &method, const QByteArray &target);
    void requestReceived(const StandIn::Request &request);
    // A reply's last byte was handed to the socket.
    void replySent();
    // A connection is gone, whoever ended it.
    void connectionClosed();

private:
    void order(const QByteArray &route, const standin::Fault &fault);

    struct Private;
    std::unique_ptr<Private> d;
};

// What goes wrong on a route. Verbs that bend a reply bend the one that the service would have given.
class StandIn::Route {
public:
    void answers(int status, const QByteArray &body = {}, const QByteArray &contentType = "application/json",
        const Headers &extraHeaders = {}) const;
    // A status of 300 to 399 with an empty JSON object as its body.
    void redirects(int status, const QByteArray &location) const;

    void hangsBeforeReply() const;      //< until `release()`
    void hangsAfterHeaders() const;     //< until `release()`
    void drips(int bytesPerStep) const; //< the whole reply, its head included, by `drip()`
    void closesWithoutReply() const;
    void cutsConnection(qint64 afterBytes) const;         //< after so many bytes of the body, promising the whole
    void sendsRaw(const QByteArray &bytes) const;         //< these bytes instead of a reply, then the connection ends
    void sendsRawAndHangs(const QByteArray &bytes) const; //< and then nothing until `release()`, which ends it
    void dripsRaw(int bytesPerStep, const QByteArray &bytes) const;         //< by `drip()`; then the connection ends
    void repeatsRaw(const QByteArray &lead, const QByteArray &block) const; //< the one and then the other without end
    void resets(const QByteArray &bytes) const; //< these bytes, then the connection is reset instead of ended
    void sendsBadChunk() const;                 //< a good chunk, then a chunk length that is no number
    void sendsHugeBody(qint64 bytes) const;     //< the reply led by so many blanks that its body has this size
    void sendsEndlessBody() const;              //< blanks without end, as fast as the client takes them

    void stopsReading(qint64 afterBytes) const; //< takes no more of the request's body and stays silent
    void cutsRequest(qint64 afterBytes) const;  //< ends the connection amid the request's body

    void givesBadJson() const;                         //< the reply's body without its second half
    void omitsField(const QByteArray &name) const;     //< at every depth of the reply
    void sendsWrongType(const QByteArray &name) const; //< a number for a text, a text for anything else
    void sendsField(const QByteArray &name, const QJsonValue &value) const; //< replaces it wherever it stands

private:
    friend class StandIn;
    void order(standin::Fault fault) const;
    Route(StandIn &service, QByteArray route, int times) : m_service(service), m_route(std::move(route)), m_times(times)
    {
    }

    StandIn &m_service;
    QByteArray m_route;
    int m_times;
};
