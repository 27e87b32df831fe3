#pragma once

#include "charts/Painted.h"

#include <QColor>
#include <QList>

namespace quillmere {

// A row of bars without axes, from the left edge on, aligned at the bottom.
class StripBars : public quillmere::Painted {
    Q_OBJECT
    QML_ELEMENT

    // Fractions of the item's height.
    Q_PROPERTY(QList<double> heights READ heights WRITE setHeights NOTIFY changed)
    // In points.
    Q_PROPERTY(double barWidth READ barWidth WRITE setBarWidth NOTIFY changed)
    Q_PROPERTY(double spacing READ spacing WRITE setSpacing NOTIFY changed)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY changed)
    // Each bar runs from the one to the other.
    Q_PROPERTY(QColor topColor READ topColor WRITE setTopColor NOTIFY changed)
    Q_PROPERTY(QColor bottomColor READ bottomColor WRITE setBottomColor NOTIFY changed)

public:
    using Painted::Painted;

    QList<double> heights() const { return m_heights; }
    void setHeights(const QList<double> &heights) { set(m_heights, heights); }
    double barWidth() const { return m_barWidth; }
    void setBarWidth(double width) { set(m_barWidth, width); }
    double spacing() const { return m_spacing; }
    void setSpacing(double spacing) { set(m_spacing, spacing); }
    double radius() const { return m_radius; }
    void setRadius(double radius) { set(m_radius, radius); }
    QColor topColor() const { return m_topColor; }
    void setTopColor(const QColor &color) { set(m_topColor, color); }
    QColor bottomColor() const { return m_bottomColor; }
    void setBottomColor(const QColor &color) { set(m_bottomColor, color); }

    void paint(QPainter *painter) override;

private:
    QList<double> m_heights;
    double m_barWidth = 8;
    double m_spacing = 4;
    double m_radius = 2;
    QColor m_topColor = Qt::white;
    QColor m_bottomColor = Qt::white;
};

} // namespace quillmere
