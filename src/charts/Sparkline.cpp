#include "charts/Sparkline.h"

#include "app/theme/Color.h"

#include <QPainter>

#include <cmath>

namespace quillmere {

Sparkline::Sparkline(QQuickItem *parent) : Painted(parent), m_color(Color::cyan())
{
}

void Sparkline::paint(QPainter *painter)
{
    QPolygonF line;
    for (const QPointF point : std::as_const(m_points)) {
        if (std::isfinite(point.x()) && std::isfinite(point.y())) {
            line.append({point.x() * width(), point.y() * height()});
        }
    }
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_color, m_lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(line);
}

} // namespace quillmere
