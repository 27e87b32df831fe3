#include "tools/agents/CurveSheets.h"

#include "app/theme/Color.h"

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>

namespace quillmere {

namespace {

constexpr double strokeWidth = 2;
constexpr double strokeOpacity = 0.5;
constexpr double controlDistance = 100;
constexpr int tileSize = 128; // pixels

QPainterPath curveOf(const QLineF &ends)
{
    QPainterPath path(ends.p1());
    path.cubicTo(ends.x1() + controlDistance, ends.y1(), ends.x2() - controlDistance, ends.y2(), ends.x2(), ends.y2());
    return path;
}

// A point of that curve, for t from 0 to 1.
QPointF pointOf(const QLineF &ends, double t)
{
    const double s = 1 - t;
    const QPointF control(controlDistance, 0);
    return s * s * s * ends.p1() + 3 * s * s * t * (ends.p1() + control) + 3 * s * t * t * (ends.p2() - control)
        + t * t * t * ends.p2();
}

} // namespace

// A picture of some curves, shown in tiles: only the tiles that a changed curve goes through are painted and shown anew.
class CurveSheets::Sheet : public QSGNode {
public:
    void show(const Ends &curves, const Projection &projection, QQuickWindow &window)
    {
        if (projection != m_projection) {
            layOut(projection);
            markAll();
        } else {
            for (qsizetype i = 0; i < std::max(curves.size(), m_curves.size()); ++i) {
                if (curves.value(i) != m_curves.value(i)) {
                    mark(m_curves.value(i));
                    mark(curves.value(i));
                }
            }
        }
        m_curves = curves;
        paintMarked();
        showMarked(window);
    }

private:
    struct Tile {
        QRect place;
        QSGImageNode *node = nullptr; // none where the tile is blank
        bool marked = false;
    };

    void layOut(const Projection &projection)
    {
        m_projection = projection;
        for (const Tile &tile : std::as_const(m_tiles)) {
            delete tile.node;
        }
        m_tiles.clear();
        m_image = QImage(projection.pixels, QImage::Format_ARGB32_Premultiplied);
        m_columns = (projection.pixels.width() + tileSize - 1) / tileSize;
        for (int y = 0; y < m_image.height(); y += tileSize) {
            for (int x = 0; x < m_image.width(); x += tileSize) {
                m_tiles.append({.place = QRect(x, y, tileSize, tileSize) & m_image.rect()});
            }
        }
    }

    void markAll()
    {
        for (Tile &tile : m_tiles) {
            tile.marked = true;
        }
    }

    // The tiles that the curve goes through, and now and then a neighbour.
    void mark(const std::optional<QLineF> &ends)
    {
        if (!ends) {
            return;
        }
        constexpr int pieces = 32;
        const double reach = strokeWidth / 2 * m_projection.toPixels.m11() + 1;
        QPointF from = m_projection.toPixels.map(ends->p1());
        for (int i = 1; i <= pieces; ++i) {
            const QPointF to = m_projection.toPixels.map(pointOf(*ends, double(i) / pieces));
            markWithin(QRectF(from, to).normalized().adjusted(-reach, -reach, reach, reach));
            from = to;
        }
    }

    void markWithin(const QRectF &pixels)
    {
        const QRect seen = pixels.toAlignedRect() & m_image.rect();
        if (seen.isEmpty()) {
            return;
        }
        for (int row = seen.top() / tileSize; row <= seen.bottom() / tileSize; ++row) {
            for (int column = seen.left() / tileSize; column <= seen.right() / tileSize; ++column) {
                m_tiles[row * m_columns + column].marked = true;
            }
        }
    }

    void paintMarked()
    {
        QRegion region;
        for (const Tile &tile : std::as_const(m_tiles)) {
            if (tile.marked) {
                region += tile.place;
            }
        }
        if (region.isEmpty()) {
            return;
        }
        QPainter painter(&m_image);
        painter.setClipRegion(region);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(m_image.rect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setTransform(m_projection.toPixels);
        const QPen pen(Color::faded(Color::gray(), strokeOpacity), strokeWidth, Qt::SolidLine, Qt::RoundCap);
        const QRectF touched = m_projection.toPixels.inverted().mapRect(QRectF(region.boundingRect()));
        for (const std::optional<QLineF> &ends : std::as_const(m_curves)) {
            if (!ends) {
                continue;
            }
            const QPainterPath curve = curveOf(*ends);
            const QMarginsF stroke(strokeWidth, strokeWidth, strokeWidth, strokeWidth);
            if (curve.controlPointRect().marginsAdded(stroke).intersects(touched)) {
                painter.strokePath(curve, pen);
            }
        }
    }

    void showMarked(QQuickWindow &window)
    {
        for (Tile &tile : m_tiles) {
            if (!tile.marked) {
                continue;
            }
            tile.marked = false;
            const QImage image = m_image.copy(tile.place);
            if (isBlank(image)) {
                delete tile.node; // which takes it out of the tree as well
                tile.node = nullptr;
                continue;
            }
            const bool isNew = !tile.node;
            if (isNew) {
                tile.node = window.createImageNode();
                tile.node->setOwnsTexture(true);
                tile.node->setFiltering(QSGTexture::Nearest);
                tile.node->setRect(QRectF(QPointF(tile.place.topLeft()) / m_projection.pixelsPerPoint,
                    QSizeF(tile.place.size()) / m_projection.pixelsPerPoint));
            }
            tile.node->setTexture(window.createTextureFromImage(image, QQuickWindow::TextureHasAlphaChannel));
            if (isNew) {
                appendChildNode(tile.node); // the software renderer asks for its texture at once
            }
        }
    }

    static bool isBlank(const QImage &image)
    {
        for (int y = 0; y < image.height(); ++y) {
            const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
            if (std::any_of(line, line + image.width(), [](QRgb pixel) { return pixel != 0; })) {
                return false;
            }
        }
        return true;
    }

    Projection m_projection;
    Ends m_curves;
    QImage m_image;
    QList<Tile> m_tiles;
    int m_columns = 0;
};

CurveSheets::CurveSheets() : m_resting(new Sheet), m_moving(new Sheet)
{
    appendChildNode(m_resting);
    appendChildNode(m_moving);
}

void CurveSheets::show(const Ends &curves, const Projection &projection, QQuickWindow &window)
{
    if (curves != m_curves) {
        m_isMoving.assign(size_t(curves.size()), false);
        for (qsizetype i = 0; i < curves.size() && curves.size() == m_curves.size(); ++i) {
            m_isMoving[size_t(i)] = curves[i] != m_curves[i];
        }
        m_curves = curves;
    }
    Ends resting = curves;
    Ends moving = curves;
    for (qsizetype i = 0; i < curves.size(); ++i) {
        (m_isMoving[size_t(i)] ? resting : moving)[i].reset();
    }
    m_resting->show(resting, projection, window);
    m_moving->show(moving, projection, window);
}

} // namespace quillmere
