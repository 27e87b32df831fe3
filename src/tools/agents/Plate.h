#pragma once

#include <QColor>
#include <QQuickItem>

namespace quillmere {

// A rounded rectangle that stays sharp in a scaled layer. The toolkit's own is drawn for the scale 1 and then stretched, which tears
// its corners off in the software renderer; and it has no shadow.
class Plate : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(QColor strokeColor READ strokeColor WRITE setStrokeColor NOTIFY changed)
    // All in points of the plate itself. The stroke lies inside of the edge.
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY changed)
    Q_PROPERTY(double strokeWidth READ strokeWidth WRITE setStrokeWidth NOTIFY changed)
    // How far the shadow reaches beyond the edge; 0: there is none.
    Q_PROPERTY(double shadowRadius READ shadowRadius WRITE setShadowRadius NOTIFY changed)
    Q_PROPERTY(QColor shadowColor READ shadowColor WRITE setShadowColor NOTIFY changed)
    // By what the plate and all that it stands in are scaled.
    Q_PROPERTY(double zoom READ zoom WRITE setZoom NOTIFY changed)

public:
    explicit Plate(QQuickItem *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color) { set(m_color, color); }
    QColor strokeColor() const { return m_strokeColor; }
    void setStrokeColor(const QColor &color) { set(m_strokeColor, color); }
    double radius() const { return m_radius; }
    void setRadius(double radius) { set(m_radius, radius); }
    double strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(double width) { set(m_strokeWidth, width); }
    double shadowRadius() const { return m_shadowRadius; }
    void setShadowRadius(double radius) { set(m_shadowRadius, radius); }
    QColor shadowColor() const { return m_shadowColor; }
    void setShadowColor(const QColor &color) { set(m_shadowColor, color); }
    double zoom() const { return m_zoom; }
    void setZoom(double zoom) { set(m_zoom, zoom); }

signals:
    void changed();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    template <typename T> void set(T &field, const T &value)
    {
        if (field != value) {
            field = value;
            emit changed();
        }
    }
    QImage picture(double pixelsPerPoint) const;
    QImage paint(double pixelsPerPoint) const;

    QColor m_color = Qt::transparent;
    QColor m_strokeColor = Qt::transparent;
    double m_radius = 0;
    double m_strokeWidth = 0;
    double m_shadowRadius = 0;
    QColor m_shadowColor = Qt::black;
    double m_zoom = 1;
};

} // namespace quillmere
