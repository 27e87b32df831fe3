#pragma once

#include "platform/Fields.h"

#include <QColor>
#include <QDateTime>
#include <QString>

namespace quillmere {

struct Project;

// A project as its card shows it.
struct ProjectRow {
    QString id;
    QString name;
    QString description;
    QString modelCount;
    QString datasetCount;
    QString badge;
    QColor statusColor;
    QString updatedText;   // "Updated 12 min ago"
    QDateTime lastUpdated; // what updatedText tells; no field of the card

    static ProjectRow of(const Project &project, const QDateTime &now);

    // Makes the text true at that moment, and says whether that changed it.
    bool updateText(const QDateTime &now);

    static constexpr auto fields()
    {
        return std::tuple{
            Field{"id", &ProjectRow::id},
            Field{"name", &ProjectRow::name},
            Field{"description", &ProjectRow::description},
            Field{"modelCount", &ProjectRow::modelCount},
            Field{"datasetCount", &ProjectRow::datasetCount},
            Field{"badge", &ProjectRow::badge},
            Field{"statusColor", &ProjectRow::statusColor},
            Field{"updatedText", &ProjectRow::updatedText},
        };
    }
};

} // namespace quillmere
