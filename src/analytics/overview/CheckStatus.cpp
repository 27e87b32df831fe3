#include "analytics/overview/CheckStatus.h"

#include "app/theme/Color.h"

using namespace Qt::StringLiterals;

namespace quillmere {

QString CheckStatus::symbol(Case status)
{
    switch (status) {
    case Pass:
        return u"checkmark.circle.fill"_s;
    case Warning:
        return u"exclamationmark.triangle.fill"_s;
    case Fail:
        return u"xmark.circle.fill"_s;
    }
    return {};
}

QColor CheckStatus::color(Case status)
{
    switch (status) {
    case Pass:
        return Color::green();
    case Warning:
        return Color::yellow();
    case Fail:
        return Color::red();
    }
    return {};
}

QString CheckStatus::name(Case status)
{
    switch (status) {
    case Pass:
        return tr("Passed");
    case Warning:
        return tr("Warning");
    case Fail:
        return tr("Failed");
    }
    return {};
}

} // namespace quillmere
