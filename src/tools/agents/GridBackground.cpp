#include "tools/agents/GridBackground.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace quillmere {

namespace {

constexpr double cellSize = 40;
constexpr double lineOpacity = 0.05;

} // namespace

void GridBackground::setGridScale(double scale)
{
    if (m_gridScale != scale) {
        m_gridScale = scale;
        update();
        emit gridScaleChanged();
    }
}

void GridBackground::paint(QPainter *painter)
{
    const double cell = cellSize * m_gridScale;
    // One path, filled once, so that the crossings are no brighter than the lines.
    QPainterPath lines;
    lines.setFillRule(Qt::WindingFill);
    for (int i = 0; i * cell < width(); ++i) {
        lines.addRect(std::round(i * cell), 0, 1, height());
    }
    for (int i = 0; i * cell < height(); ++i) {
        lines.addRect(0, std::round(i * cell), width(), 1);
    }
    QColor color = Qt::white;
    color.setAlphaF(lineOpacity);
    painter->fillPath(lines, color);
}

} // namespace quillmere
