#include "service/QuillmereAPIClient.h"

#include "platform/Environment.h"
#include "platform/Http.h"
#include "platform/Urls.h"
#include "service/APIError.h"
#include "service/UploadForm.h"

#include <QCoreApplication>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

QString base()
{
    return Environment::current().hosts.apiEndpoint + u"/v1"_s;
}

Failure failureOf(int status, const QByteArray &body)
{
    switch (status) {
    case 403:
        return failure(APIError::forbidden);
    case 404:
        return failure(APIError::notFound);
    case 429:
        return failure(APIError::rateLimited);
    default:
        break;
    }
    if (const auto told = decode<APIErrorResponse>(body, KeyCoding::SnakeCase)) {
        return failure(APIError::serverError, told->detail);
    }
    return failure(
        APIError::serverError, QCoreApplication::translate("APIError", "Unknown error (status: %1)").arg(status));
}

} // namespace

QuillmereAPIClient &QuillmereAPIClient::shared()
{
    return Environment::current().shared<QuillmereAPIClient>();
}

QCoro::Task<Result<ModelsResponse>> QuillmereAPIClient::listModels()
{
    return request<ModelsResponse>(u"models"_s, u"GET"_s, false);
}

QCoro::Task<Result<ModelDownloadInfo>> QuillmereAPIClient::getModelDownload(QString modelId)
{
    return request<ModelDownloadInfo>(u"models/"_s + modelId + u"/download"_s, u"GET"_s, true);
}

QCoro::Task<Result<QList<DatasetInfo>>> QuillmereAPIClient::listDatasets(QString workspaceId)
{
    const auto response = co_await request<DatasetsResponse>(u"files?workspace_id="_s + workspaceId, u"GET"_s, true);
    if (!response) {
        co_return response.failure();
    }
    co_return response->data;
}

QCoro::Task<Result<DatasetInfo>> QuillmereAPIClient::uploadDataset(
    QString workspaceId, QByteArray fileData, QString filename)
{
    const auto url = parseWebUrl(base() + u"/files?workspace_id="_s + workspaceId);
    if (!url) {
        co_return failure(APIError::invalidURL);
    }
    const QByteArray boundary = QUuid::createUuid().toByteArray(QUuid::WithoutBraces).toUpper();
    auto form = UploadForm::make(filename, std::move(fileData), boundary);
    if (!form) {
        co_return form.failure();
    }
    HttpRequest request{"POST", *url, {{"Content-Type", form->contentType}}, std::move(form->body)};
    if (const auto token = co_await authorization()) {
        request.headers.append({"Authorization", *token});
    }
    const auto response = co_await HttpSession::shared().send(std::move(request));
    if (!response) {
        co_return response.failure();
    }
    co_return co_await decoded<DatasetInfo>(response->body);
}

QCoro::Task<Result<FineTuneJobsResponse>> QuillmereAPIClient::listFineTuneJobs()
{
    return request<FineTuneJobsResponse>(u"fine-tuning/jobs"_s, u"GET"_s, true);
}

QCoro::Task<Result<FineTuneJob>> QuillmereAPIClient::cancelFineTuneJob(QString jobId)
{
    return request<FineTuneJob>(u"fine-tuning/jobs/"_s + jobId + u"/cancel"_s, u"POST"_s, true);
}

QCoro::Task<Result<UserProfile>> QuillmereAPIClient::getCurrentUser()
{
    return request<UserProfile>(u"auth/me"_s, u"GET"_s, true);
}

QCoro::Task<Result<QByteArray>> QuillmereAPIClient::send(
    QString endpoint, QString method, Result<QByteArray> body, bool authenticated)
{
    const auto url = parseWebUrl(base() + u'/' + endpoint);
    if (!url) {
        co_return failure(APIError::invalidURL);
    }
    HttpRequest request{method.toUtf8(), *url, jsonHeaders(), {}};
    if (authenticated) {
        if (const auto token = co_await authorization()) {
            request.headers.append({"Authorization", *token});
        }
    }
    if (!body) {
        co_return body.failure();
    }
    if (!body->isEmpty()) {
        request.body = {*body};
    }
    auto response = co_await HttpSession::shared().send(std::move(request));
    if (!response) {
        co_return response.failure();
    }
    if (response->status >= 200 && response->status < 300) {
        co_return std::move(response->body);
    }
    if (response->status == 401) {
        if (m_session) {
            m_session->logout();
        }
        co_return failure(APIError::unauthorized);
    }
    co_return failureOf(response->status, response->body);
}

QCoro::Task<std::optional<QByteArray>> QuillmereAPIClient::authorization()
{
    if (!m_session) {
        co_return std::nullopt;
    }
    const auto token = co_await m_session->accessToken();
    // One with a line end or a NUL in it would forge headers. The service takes a request without any for what it is.
    if (!token || token->contains(u'\r') || token->contains(u'\n') || token->contains(u'\0')) {
        co_return std::nullopt;
    }
    co_return "Bearer " + token->toUtf8();
}

} // namespace quillmere
