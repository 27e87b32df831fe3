#include "workspace/projects/ProjectRow.h"

#include "app/theme/Theme.h"
#include "platform/Text.h"
#include "workspace/projects/Project.h"

#include <QCoreApplication>

namespace quillmere {

namespace {

QColor colorOf(Project::ProjectStatus status)
{
    switch (status) {
    case Project::ProjectStatus::active:
        return Theme::success();
    case Project::ProjectStatus::training:
        return Theme::accent();
    case Project::ProjectStatus::archived:
        return Theme::textTertiary();
    }
    Q_UNREACHABLE();
}

} // namespace

ProjectRow ProjectRow::of(const Project &project, const QDateTime &now)
{
    ProjectRow row{
        .id = project.id,
        .name = project.name,
        .description = project.description,
        .modelCount = QString::number(project.modelCount),
        .datasetCount = QString::number(project.datasetCount),
        .badge = Project::title(project.status),
        .statusColor = colorOf(project.status),
        .updatedText = {},
        .lastUpdated = project.lastUpdated,
    };
    row.updateText(now);
    return row;
}

bool ProjectRow::updateText(const QDateTime &now)
{
    QString text = QCoreApplication::translate("ProjectRow", "Updated %1 ago").arg(text::relative(lastUpdated, now));
    if (text == updatedText) {
        return false;
    }
    updatedText = std::move(text);
    return true;
}

} // namespace quillmere
