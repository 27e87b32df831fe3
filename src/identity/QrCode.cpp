#include "identity/QrCode.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

namespace quillmere {

QrCode::QrCode(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    setAntialiasing(false);
}

void QrCode::setImageData(const QByteArray &data)
{
    if (data == m_imageData) {
        return;
    }
    m_imageData = data;
    m_image = {};
    QBuffer buffer(&m_imageData);
    QImageReader reader(&buffer);
    constexpr int longestSide = 4096;
    const QSize size = reader.size();
    if (!size.isEmpty() && size.width() <= longestSide && size.height() <= longestSide) {
        m_image = reader.read();
    }
    emit imageDataChanged();
    update();
}

void QrCode::paint(QPainter *painter)
{
    // The light margin of the code ends in the corners of the ground that it lies on.
    QPainterPath ground;
    ground.addRoundedRect(boundingRect(), 8, 8);
    painter->setClipPath(ground);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter->drawImage(boundingRect(), m_image);
}

} // namespace quillmere
