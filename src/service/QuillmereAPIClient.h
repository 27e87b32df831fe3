#pragma once

#include "platform/Result.h"
#include "service/Json.h"
#include "service/Records.h"
#include "service/ServiceSession.h"

#include <QCoroFuture>
#include <QCoroTask>

#include <QtConcurrentRun>

namespace quillmere {

// The program's one client of the fine-tuning service (docs/service.md). It holds no state but who the session is: no cache,
// no retry, no pagination, no token of its own. Calls may overlap.
//
// Every operation fails with one of: Service (an APIError by status), Transport (no whole reply, in the library's words),
// Decoding (a reply that is not the told record), Encoding. A status of 401 on any JSON operation ends the session before the
// failure reaches the caller. Nothing is printed.
class QuillmereAPIClient {
public:
    static QuillmereAPIClient &shared();

    // Whose token is sent and who hears of a 401. Without a session none is sent and nobody hears.
    void setSession(ServiceSession *session) { m_session = session; }

    QCoro::Task<Result<ModelsResponse>> listModels();
    QCoro::Task<Result<ModelDownloadInfo>> getModelDownload(QString modelId);
    QCoro::Task<Result<QList<DatasetInfo>>> listDatasets(QString workspaceId);
    // Sends the file as one multipart part (RFC 7578) whose name is not escaped; a name with CR, LF or NUL, which would forge
    // the frame, fails as Encoding before any request. The status of the reply plays no part: it is a DatasetInfo or it fails
    // as Decoding, and a 401 does not end the session.
    QCoro::Task<Result<DatasetInfo>> uploadDataset(QString workspaceId, QByteArray fileData, QString filename);
    QCoro::Task<Result<FineTuneJobsResponse>> listFineTuneJobs();
    QCoro::Task<Result<FineTuneJob>> cancelFineTuneJob(QString jobId);
    QCoro::Task<Result<UserProfile>> getCurrentUser();

    // The routine behind all of these but the upload. The endpoint, with its query, goes behind the base letter for letter;
    // where that makes no URL the call fails with APIError's invalidURL and nothing is sent.
    template <typename Record> QCoro::Task<Result<Record>> request(QString endpoint, QString method, bool authenticated)
    {
        return requestEncoded<Record>(std::move(endpoint), std::move(method), QByteArray(), authenticated);
    }
    // The same with a record for a body; what cannot be encoded fails and nothing is sent.
    template <typename Record, typename Body>
    QCoro::Task<Result<Record>> request(QString endpoint, QString method, Body body, bool authenticated)
    {
        return requestEncoded<Record>(
            std::move(endpoint), std::move(method), encode(body, KeyCoding::SnakeCase), authenticated);
    }

private:
    // From this size on a reply is decoded on a worker, so that the window goes on.
    static constexpr qsizetype largeReply = 256 * 1024;

    template <typename Record>
    QCoro::Task<Result<Record>> requestEncoded(
        QString endpoint, QString method, Result<QByteArray> body, bool authenticated)
    {
        const Result<QByteArray> reply =
            co_await send(std::move(endpoint), std::move(method), std::move(body), authenticated);
        if (!reply) {
            co_return reply.failure();
        }
        co_return co_await decoded<Record>(*reply);
    }

    template <typename Record> static QCoro::Task<Result<Record>> decoded(QByteArray json)
    {
        if (json.size() < largeReply) {
            co_return decode<Record>(json, KeyCoding::SnakeCase);
        }
        // Not within the co_await: g++ 12 destroys what a closure there captured once more than it was made.
        const QFuture<Result<Record>> decoding =
            QtConcurrent::run([json] { return decode<Record>(json, KeyCoding::SnakeCase); });
        co_return co_await decoding;
    }

    // The body of a reply with a status of 200 to 299.
    QCoro::Task<Result<QByteArray>> send(QString endpoint, QString method, Result<QByteArray> body, bool authenticated);
    QCoro::Task<std::optional<QByteArray>> authorization();

    ServiceSession *m_session = nullptr;
};

} // namespace quillmere
