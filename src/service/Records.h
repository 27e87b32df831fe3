#pragma once

#include "platform/Fields.h"
#include "service/AnyCodable.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

// What crosses the wire between the program and the fine-tuning service. A field that is not optional has to be there;
// dates are in UTC, to the second; sizes are in bytes. On the wire the keys stand in snake_case.
namespace quillmere {

// A training job, identified by `id`. `status` is a free text of the service, `progress` the figure as it reports it.
struct FineTuneJob {
    QString id;
    QString name;
    QString status;
    qint64 progress = 0;
    std::optional<AnyCodableMap> config;
    std::optional<AnyCodableMap> metrics;
    std::optional<QString> errorMessage;
    std::optional<QDateTime> startedAt;
    std::optional<QDateTime> completedAt;
    QDateTime createdAt;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &FineTuneJob::id},
            Field{"name", &FineTuneJob::name},
            Field{"status", &FineTuneJob::status},
            Field{"progress", &FineTuneJob::progress},
            Field{"config", &FineTuneJob::config},
            Field{"metrics", &FineTuneJob::metrics},
            Field{"errorMessage", &FineTuneJob::errorMessage},
            Field{"startedAt", &FineTuneJob::startedAt},
            Field{"completedAt", &FineTuneJob::completedAt},
            Field{"createdAt", &FineTuneJob::createdAt},
        };
    }
};

// An uploaded dataset file, identified by `id`.
struct DatasetInfo {
    QString id;
    QString filename;
    QString purpose;
    qint64 bytes = 0;
    QDateTime createdAt;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &DatasetInfo::id},
            Field{"filename", &DatasetInfo::filename},
            Field{"purpose", &DatasetInfo::purpose},
            Field{"bytes", &DatasetInfo::bytes},
            Field{"createdAt", &DatasetInfo::createdAt},
        };
    }
};

// What the account has booked. No operation of the service client returns one.
struct SubscriptionInfo {
    bool isActive = false;
    QString plan;
    std::optional<QDateTime> expiresAt;
    QList<QString> features;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"isActive", &SubscriptionInfo::isActive},
            Field{"plan", &SubscriptionInfo::plan},
            Field{"expiresAt", &SubscriptionInfo::expiresAt},
            Field{"features", &SubscriptionInfo::features},
        };
    }
};

// The signed-in user, identified by `id`.
struct UserProfile {
    QString id;
    QString email;
    std::optional<QString> name;
    std::optional<QString> avatarUrl;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &UserProfile::id},
            Field{"email", &UserProfile::email},
            Field{"name", &UserProfile::name},
            Field{"avatarUrl", &UserProfile::avatarUrl},
        };
    }
};

// A base model of the catalog, identified by `id`. `parameters` and `contextLength` are counts.
struct ModelInfo {
    QString id;
    QString name;
    std::optional<QString> description;
    std::optional<qint64> parameters;
    std::optional<qint64> contextLength;
    std::optional<bool> supportsFinetuning;
    std::optional<QString> downloadUrl;
    std::optional<qint64> sizeBytes;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &ModelInfo::id},
            Field{"name", &ModelInfo::name},
            Field{"description", &ModelInfo::description},
            Field{"parameters", &ModelInfo::parameters},
            Field{"contextLength", &ModelInfo::contextLength},
            Field{"supportsFinetuning", &ModelInfo::supportsFinetuning},
            Field{"downloadUrl", &ModelInfo::downloadUrl},
            Field{"sizeBytes", &ModelInfo::sizeBytes},
        };
    }
};

// Where a model can be fetched from, and until when.
struct ModelDownloadInfo {
    QString downloadUrl;
    QDateTime expiresAt;
    qint64 sizeBytes = 0;
    std::optional<QString> checksum;

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"downloadUrl", &ModelDownloadInfo::downloadUrl},
            Field{"expiresAt", &ModelDownloadInfo::expiresAt},
            Field{"sizeBytes", &ModelDownloadInfo::sizeBytes},
            Field{"checksum", &ModelDownloadInfo::checksum},
        };
    }
};

struct ModelsResponse {
    QList<ModelInfo> data;

    static constexpr auto fields() { return std::tuple{Field{"data", &ModelsResponse::data}}; }
};

struct DatasetsResponse {
    QList<DatasetInfo> data;

    static constexpr auto fields() { return std::tuple{Field{"data", &DatasetsResponse::data}}; }
};

struct FineTuneJobsResponse {
    QList<FineTuneJob> data;

    static constexpr auto fields() { return std::tuple{Field{"data", &FineTuneJobsResponse::data}}; }
};

// What the service says of a request that it refused. It is only ever received.
struct APIErrorResponse {
    QString detail;

    static constexpr bool decodableOnly = true;
    static constexpr auto fields() { return std::tuple{Field{"detail", &APIErrorResponse::detail}}; }
};

} // namespace quillmere
