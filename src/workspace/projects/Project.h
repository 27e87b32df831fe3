#pragma once

#include <QDateTime>
#include <QString>

namespace quillmere {

// A workspace of the user, identified by `id`. The description may be empty.
struct Project {
    enum class ProjectStatus { active, training, archived };

    QString id;
    QString name;
    QString description;
    int modelCount = 0;
    int datasetCount = 0;
    QDateTime lastUpdated;
    ProjectStatus status = ProjectStatus::active;

    // "Active", "Training", "Archived".
    static QString rawValue(ProjectStatus status);
    // The same in the user's language.
    static QString title(ProjectStatus status);
};

} // namespace quillmere
