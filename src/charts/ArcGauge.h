#pragma once

#include "charts/RingKernel.h"

#include <QColor>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// A gauge as an arc of three quarters of a circle, open at the bottom: a faint track, and over it the lit part, which gathers
// colour on its way and glows. The stroke's middle line is the largest circle in the item, so stroke and glow reach beyond its
// edges.
class ArcGauge : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    // How much of the arc is lit, from 0 to 1.
    Q_PROPERTY(double fraction READ fraction WRITE setFraction NOTIFY changed)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY changed)
    Q_PROPERTY(
        double strokeWidth READ strokeWidth WRITE setStrokeWidth NOTIFY changed) // in points, as the glow's reach
    Q_PROPERTY(double glow READ glow WRITE setGlow NOTIFY changed)

public:
    explicit ArcGauge(QQuickItem *parent = nullptr);

    double fraction() const { return m_fraction; }
    void setFraction(double fraction) { set(m_fraction, fraction); }
    QColor color() const { return m_color; }
    void setColor(const QColor &color) { set(m_color, color); }
    QColor trackColor() const { return m_trackColor; }
    void setTrackColor(const QColor &color) { set(m_trackColor, color); }
    double strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(double width) { set(m_strokeWidth, width); }
    double glow() const { return m_glow; }
    void setGlow(double glow) { set(m_glow, glow); }

    // How often a picture was drawn.
    int drawings() const { return m_drawings; }

signals:
    void changed();

protected:
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    template <typename T> void set(T &field, const T &value)
    {
        if (field != value) {
            field = value;
            redraw();
            emit changed();
        }
    }

    void redraw();

    double m_fraction = 0;
    QColor m_color = Qt::white;
    QColor m_trackColor{255, 255, 255, 26};
    double m_strokeWidth = 8;
    double m_glow = 6;

    std::shared_ptr<RingKernel> m_kernel;
    bool m_isStale = true;
    QImage m_picture;
    int m_drawings = 0;
};

} // namespace quillmere
