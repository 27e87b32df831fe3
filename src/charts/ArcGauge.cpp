#include "charts/ArcGauge.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillmere {

ArcGauge::ArcGauge(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void ArcGauge::redraw()
{
    m_isStale = true;
    polish();
    update();
}

// On the main thread, which the kernels belong to; what the renderer's thread does is hand the picture over.
void ArcGauge::updatePolish()
{
    // Whoever asks for an item's layout comes here too.
    if (!window() || !std::exchange(m_isStale, false)) {
        return;
    }
    const RingKernel::Shape shape{
        std::min(width(), height()), m_strokeWidth, m_glow, m_trackColor.rgba(), window()->effectiveDevicePixelRatio()};
    if (shape.diameter <= 0) {
        m_kernel.reset();
        m_picture = {};
    } else {
        if (!m_kernel || m_kernel->shape() != shape) {
            m_kernel = RingKernel::of(shape);
        }
        m_picture = m_kernel->draw(m_fraction, m_color);
        ++m_drawings;
    }
}

QSGNode *ArcGauge::updatePaintNode(QSGNode *node, UpdatePaintNodeData * /*data*/)
{
    if (m_picture.isNull()) {
        delete node;
        return nullptr;
    }
    auto *image = static_cast<QSGImageNode *>(node);
    if (!image) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
        image->setFiltering(QSGTexture::Linear); // for a gauge that is scaled
    }
    image->setTexture(window()->createTextureFromImage(m_picture, QQuickWindow::TextureHasAlphaChannel));
    // On whole points, since half a point to the side the picture would be smeared.
    const QSizeF size = m_picture.deviceIndependentSize();
    image->setRect(
        QRectF(QPointF(std::round((width() - size.width()) / 2), std::round((height() - size.height()) / 2)), size));
    return image;
}

void ArcGauge::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) {
        redraw();
    }
}

void ArcGauge::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) {
        redraw();
    }
}

} // namespace quillmere
