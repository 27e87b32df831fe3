#pragma once

#include "platform/Fields.h"

#include <QString>

namespace quillmere {

struct ModelInfo;

// A model as its card shows it.
struct ModelRow {
    QString id;
    QString name;
    QString description;    // or what stands in its place where there is none
    bool isTunable = false; // only where the service says so
    // "7.0B", "8K", "14.48 GB"; empty where the service tells none.
    QString params;
    QString context;
    QString size;
    bool isDownloaded = false;
    bool isDownloading = false;

    static ModelRow of(const ModelInfo &model, bool isDownloaded, bool isDownloading);

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &ModelRow::id},
            Field{"name", &ModelRow::name},
            Field{"description", &ModelRow::description},
            Field{"isTunable", &ModelRow::isTunable},
            Field{"params", &ModelRow::params},
            Field{"context", &ModelRow::context},
            Field{"size", &ModelRow::size},
            Field{"isDownloaded", &ModelRow::isDownloaded},
            Field{"isDownloading", &ModelRow::isDownloading},
        };
    }
};

} // namespace quillmere
