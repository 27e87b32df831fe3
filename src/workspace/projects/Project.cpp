#include "workspace/projects/Project.h"

#include <QCoreApplication>

namespace quillmere {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(Project)
};

const char *nameOf(Project::ProjectStatus status)
{
    switch (status) {
    case Project::ProjectStatus::active:
        return QT_TRANSLATE_NOOP("Project", "Active");
    case Project::ProjectStatus::training:
        return QT_TRANSLATE_NOOP("Project", "Training");
    case Project::ProjectStatus::archived:
        return QT_TRANSLATE_NOOP("Project", "Archived");
    }
    Q_UNREACHABLE();
}

} // namespace

QString Project::rawValue(ProjectStatus status)
{
    return QString::fromLatin1(nameOf(status));
}

QString Project::title(ProjectStatus status)
{
    return Texts::tr(nameOf(status));
}

} // namespace quillmere
