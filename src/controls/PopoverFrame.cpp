#include "controls/PopoverFrame.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace quillmere {

namespace {

constexpr double radius = 10;
constexpr double halfArrow = 10;

} // namespace

PopoverFrame::PopoverFrame(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &PopoverFrame::changed, this, [this] { update(); });
}

void PopoverFrame::setArrowX(double x)
{
    if (m_arrowX != x) {
        m_arrowX = x;
        emit changed();
    }
}

void PopoverFrame::setColor(const QColor &color)
{
    if (m_color != color) {
        m_color = color;
        emit changed();
    }
}

void PopoverFrame::setStrokeColor(const QColor &color)
{
    if (m_strokeColor != color) {
        m_strokeColor = color;
        emit changed();
    }
}

void PopoverFrame::paint(QPainter *painter)
{
    // Half a point in from every edge, where a stroke of one point lies whole.
    const QRectF panel = QRectF(0, arrowHeight(), width(), height() - arrowHeight()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double reach = radius + halfArrow;
    const double tip = panel.width() < 2 * reach ? panel.center().x()
                                                 : std::clamp(m_arrowX, panel.left() + reach, panel.right() - reach);

    QPainterPath outline;
    outline.addRoundedRect(panel, radius, radius);
    QPainterPath arrow(QPointF(tip - halfArrow, panel.top() + 1));
    arrow.lineTo(tip - halfArrow, panel.top());
    arrow.cubicTo(tip - halfArrow / 2, panel.top(), tip - 2, 1, tip, 1);
    arrow.cubicTo(tip + 2, 1, tip + halfArrow / 2, panel.top(), tip + halfArrow, panel.top());
    arrow.lineTo(tip + halfArrow, panel.top() + 1);
    arrow.closeSubpath();

    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_strokeColor, 1));
    painter->setBrush(m_color);
    painter->drawPath(outline.united(arrow));
}

} // namespace quillmere
