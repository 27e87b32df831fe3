#include "workspace/projects/Project.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillmere {

QString Project::rawValue(ProjectStatus status)
{
    switch (status) {
    case ProjectStatus::active:
        return QString::fromLatin1(QT_TRANSLATE_NOOP("ProjectRow", "Active"));
    case ProjectStatus::training:
        return QString::fromLatin1(QT_TRANSLATE_NOOP("ProjectRow", "Training"));
    case ProjectStatus::archived:
        return QString::fromLatin1(QT_TRANSLATE_NOOP("ProjectRow", "Archived"));
    }
    Q_UNREACHABLE();
}

} // namespace quillmere
