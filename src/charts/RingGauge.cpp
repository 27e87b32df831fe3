#include "charts/RingGauge.h"

#include "app/theme/Theme.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillmere {

RingGauge::RingGauge(QQuickItem *parent) : Painted(parent), m_trackColor(Theme::track())
{
    setImplicitSize(60, 60);
}

void RingGauge::setFraction(double fraction)
{
    set(m_fraction, std::isnan(fraction) ? 0 : std::clamp(fraction, 0.0, 1.0));
}

void RingGauge::paint(QPainter *painter)
{
    const double side = std::min(width(), height()) - m_strokeWidth;
    if (side <= 0) {
        return;
    }
    QRectF ring(0, 0, side, side);
    ring.moveCenter(boundingRect().center());
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    QPen pen(m_trackColor, m_strokeWidth, Qt::SolidLine, Qt::RoundCap);
    const auto arc = [&](double fraction) {
        // QPainter counts in sixteenths of a degree, the other way round.
        painter->setPen(pen);
        painter->drawArc(ring, qRound(-m_startAngle * 16), qRound(-m_spanAngle * fraction * 16));
    };
    arc(1);
    if (m_fraction > 0) {
        pen.setColor(m_color);
        arc(m_fraction);
    }
}

} // namespace quillmere
