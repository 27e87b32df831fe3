#include "tools/agents/GridBackground.h"

#include <QPainter>

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
    QColor color = Qt::white;
    color.setAlphaF(lineOpacity);
    // In the place of what is there, so that the crossings are no brighter than the lines.
    painter->setCompositionMode(QPainter::CompositionMode_Source);
    for (int i = 0; i * cell < width(); ++i) {
        painter->fillRect(QRectF(std::round(i * cell), 0, 1, height()), color);
    }
    for (int i = 0; i * cell < height(); ++i) {
        painter->fillRect(QRectF(0, std::round(i * cell), width(), 1), color);
    }
}

} // namespace quillmere
