#include "tools/wizard/DashedFrame.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace quillmere {

DashedFrame::DashedFrame(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    connect(this, &DashedFrame::changed, this, [this] { update(); });
}

void DashedFrame::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    painter->drawRoundedRect(boundingRect(), m_radius, m_radius);

    const double inset = m_strokeWidth / 2;
    QPainterPath outline;
    outline.addRoundedRect(boundingRect().adjusted(inset, inset, -inset, -inset), m_radius - inset, m_radius - inset);
    const double periods = std::max(1.0, std::round(outline.length() / (2 * m_dash)));
    const double dash = outline.length() / (2 * periods) / m_strokeWidth; // a pen counts in its own width

    QPen pen(m_strokeColor, m_strokeWidth);
    pen.setCapStyle(Qt::FlatCap);
    pen.setDashPattern({dash, dash});
    painter->strokePath(outline, pen);
}

} // namespace quillmere
