#include "tools/agents/Plate.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <map>
#include <tuple>

namespace quillmere {

Plate::Plate(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &Plate::changed, this, &QQuickItem::update);
}

void Plate::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) {
        update();
    }
}

QSGNode *Plate::updatePaintNode(QSGNode *old, UpdatePaintNodeData *)
{
    const double pixelsPerPoint = m_zoom * window()->effectiveDevicePixelRatio();
    const QImage image = picture(pixelsPerPoint);
    if (image.isNull()) {
        delete old;
        return nullptr;
    }
    auto *node = static_cast<QSGImageNode *>(old);
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        // Pixel by pixel: the picture has the size that it has on the screen.
        node->setFiltering(QSGTexture::Nearest);
    }
    node->setTexture(window()->createTextureFromImage(image, QQuickWindow::TextureHasAlphaChannel));
    node->setRect(QRectF(QPointF(-m_shadowRadius, -m_shadowRadius), QSizeF(image.size()) / pixelsPerPoint));
    return node;
}

// Nodes of a kind look alike, and share one picture in memory.
QImage Plate::picture(double pixelsPerPoint) const
{
    static std::map<std::tuple<double, double, QRgb, QRgb, double, double, double, QRgb, double>, QImage> pictures;
    constexpr size_t mostPictures = 128;

    const auto look = std::tuple(width(), height(), m_color.rgba(), m_strokeColor.rgba(), m_radius, m_strokeWidth,
        m_shadowRadius, m_shadowColor.rgba(), pixelsPerPoint);
    const auto known = pictures.find(look);
    if (known != pictures.end()) {
        return known->second;
    }
    if (pictures.size() >= mostPictures) {
        pictures.clear();
    }
    return pictures[look] = paint(pixelsPerPoint);
}

QImage Plate::paint(double pixelsPerPoint) const
{
    if (width() <= 0 || height() <= 0) {
        return {};
    }
    const auto pixels = [&](double points) { return int(std::ceil((points + 2 * m_shadowRadius) * pixelsPerPoint)); };
    QImage image(pixels(width()), pixels(height()), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixelsPerPoint, pixelsPerPoint);
    painter.translate(m_shadowRadius, m_shadowRadius);
    painter.setPen(Qt::NoPen);
    const QRectF body(0, 0, width(), height());

    // Thin layers one above the other, each a little smaller: outside they fade away, at the edge half of the shadow is reached.
    constexpr int layers = 16;
    QColor layer = m_shadowColor;
    layer.setAlphaF(float(1 - std::pow(1 - m_shadowColor.alphaF(), 1.0 / layers)));
    painter.setBrush(layer);
    for (int i = 0; m_shadowRadius > 0 && i < layers; ++i) {
        const double reach = m_shadowRadius * (1 - 2 * (i + 0.5) / layers);
        painter.drawRoundedRect(body.adjusted(-reach, -reach, reach, reach), m_radius + reach, m_radius + reach);
    }

    painter.setBrush(m_color);
    painter.drawRoundedRect(body, m_radius, m_radius);
    if (m_strokeWidth > 0) {
        const double inset = m_strokeWidth / 2;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(m_strokeColor, m_strokeWidth));
        painter.drawRoundedRect(body.adjusted(inset, inset, -inset, -inset), m_radius - inset, m_radius - inset);
    }
    return image;
}

} // namespace quillmere
