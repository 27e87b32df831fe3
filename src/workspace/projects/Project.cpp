#include "workspace/projects/Project.h"

using namespace Qt::StringLiterals;

namespace quillmere {

QString Project::rawValue(ProjectStatus status)
{
    switch (status) {
    case ProjectStatus::active:
        return u"Active"_s;
    case ProjectStatus::training:
        return u"Training"_s;
    case ProjectStatus::archived:
        return u"Archived"_s;
    }
    Q_UNREACHABLE();
}

} // namespace quillmere
