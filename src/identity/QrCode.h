#pragma once

#include <QByteArray>
#include <QImage>
#include <QQuickPaintedItem>

namespace quillmere {

// The image of a QR code, its modules drawn with hard edges. What is no image, or one of more than 4,096 pixels a side, leaves
// the item empty and `isImage` false.
class QrCode : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QByteArray imageData READ imageData WRITE setImageData NOTIFY imageDataChanged)
    Q_PROPERTY(bool isImage READ isImage NOTIFY imageDataChanged)

public:
    explicit QrCode(QQuickItem *parent = nullptr);

    QByteArray imageData() const { return m_imageData; }
    void setImageData(const QByteArray &data);
    bool isImage() const { return !m_image.isNull(); }

    void paint(QPainter *painter) override;

signals:
    void imageDataChanged();

private:
    QByteArray m_imageData;
    QImage m_image;
};

} // namespace quillmere
