#include "charts/LineSeries.h"

#include <algorithm>

namespace quillmere {

void LineSeries::setName(const QString &name)
{
    if (m_name != name) {
        m_name = name;
        emit nameChanged();
    }
}

void LineSeries::setColor(const QColor &color)
{
    if (m_color != color) {
        m_color = color;
        emit colorChanged();
    }
}

void LineSeries::setPoints(const QList<QPointF> &points)
{
    // Not QPointF's own comparison, which takes points that lie close together for the same.
    const bool same = std::equal(m_points.begin(), m_points.end(), points.begin(), points.end(),
        [](QPointF a, QPointF b) { return a.x() == b.x() && a.y() == b.y(); });
    if (!same) {
        m_points = points;
        emit pointsChanged();
    }
}

} // namespace quillmere
