#include "workspace/projects/ProjectRow.h"

#include "app/theme/Color.h"
#include "platform/Text.h"
#include "workspace/projects/Project.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillmere {

namespace {

QColor colorOf(Project::ProjectStatus status)
{
    switch (status) {
    case Project::ProjectStatus::active:
        return Color::hex(u"22C55E"_s);
    case Project::ProjectStatus::training:
        return Color::hex(u"3B82F6"_s);
    case Project::ProjectStatus::archived:
        return Color::hex(u"71717A"_s);
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
        .badge = QCoreApplication::translate("ProjectRow", Project::rawValue(project.status).toLatin1()),
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
