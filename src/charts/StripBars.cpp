#include "charts/StripBars.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>

namespace quillmere {

void StripBars::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    double x = 0;
    for (const double fraction : std::as_const(m_heights)) {
        // In this order of its arguments std::max gives 0 for what is no number.
        const double barHeight = height() * std::min(1.0, std::max(0.0, fraction));
        const QRectF bar(x, height() - barHeight, m_barWidth, barHeight);
        QLinearGradient gradient(bar.topLeft(), bar.bottomLeft());
        gradient.setColorAt(0, m_topColor);
        gradient.setColorAt(1, m_bottomColor);
        painter->setBrush(gradient);
        painter->drawRoundedRect(bar, m_radius, m_radius);
        x += m_barWidth + m_spacing;
    }
}

} // namespace quillmere
