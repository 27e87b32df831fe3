#pragma once

#include "charts/Painted.h"

#include <QColor>
#include <QList>
#include <QPointF>

namespace quillmere {

// A line without axes. Its points are fractions of the item: (0, 0) at the top left, (1, 1) at the bottom right.
class Sparkline : public quillmere::Painted {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QList<QPointF> points READ points WRITE setPoints NOTIFY changed)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(double lineWidth READ lineWidth WRITE setLineWidth NOTIFY changed)

public:
    explicit Sparkline(QQuickItem *parent = nullptr);

    QList<QPointF> points() const { return m_points; }
    void setPoints(const QList<QPointF> &points) { set(m_points, points); }
    QColor color() const { return m_color; }
    void setColor(const QColor &color) { set(m_color, color); }
    double lineWidth() const { return m_lineWidth; }
    void setLineWidth(double width) { set(m_lineWidth, width); }

    void paint(QPainter *painter) override;

private:
    QList<QPointF> m_points;
    QColor m_color;
    double m_lineWidth = 1.5;
};

} // namespace quillmere
