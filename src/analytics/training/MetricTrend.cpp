#include "analytics/training/MetricTrend.h"

#include "app/theme/Color.h"

namespace quillmere {

QColor MetricTrend::color(const QString &trend)
{
    if (trend.contains(u'-')) {
        return Color::green();
    }
    return trend.contains(u'+') ? Color::red() : Color::gray();
}

} // namespace quillmere
