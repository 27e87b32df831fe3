#pragma once

#include "charts/Painted.h"

#include <QColor>

namespace quillmere {

// A ring, or a part of one, that is filled up to a fraction. Both strokes have round ends and lie whole inside of the item.
class RingGauge : public quillmere::Painted {
    Q_OBJECT
    QML_ELEMENT

    // From 0 to 1; what lies outside counts as the nearer end, what is no number as 0.
    Q_PROPERTY(double fraction READ fraction WRITE setFraction NOTIFY changed)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY changed)
    Q_PROPERTY(double strokeWidth READ strokeWidth WRITE setStrokeWidth NOTIFY changed)
    // In degrees, clockwise from three o'clock: where the ring starts, and how far it goes. By itself it is a whole ring from
    // the top.
    Q_PROPERTY(double startAngle READ startAngle WRITE setStartAngle NOTIFY changed)
    Q_PROPERTY(double spanAngle READ spanAngle WRITE setSpanAngle NOTIFY changed)

public:
    explicit RingGauge(QQuickItem *parent = nullptr);

    double fraction() const { return m_fraction; }
    void setFraction(double fraction);
    QColor color() const { return m_color; }
    void setColor(const QColor &color) { set(m_color, color); }
    QColor trackColor() const { return m_trackColor; }
    void setTrackColor(const QColor &color) { set(m_trackColor, color); }
    double strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(double width) { set(m_strokeWidth, width); }
    double startAngle() const { return m_startAngle; }
    void setStartAngle(double angle) { set(m_startAngle, angle); }
    double spanAngle() const { return m_spanAngle; }
    void setSpanAngle(double angle) { set(m_spanAngle, angle); }

    void paint(QPainter *painter) override;

private:
    double m_fraction = 0;
    QColor m_color = Qt::white;
    QColor m_trackColor;
    double m_strokeWidth = 4;
    double m_startAngle = -90;
    double m_spanAngle = 360;
};

} // namespace quillmere
