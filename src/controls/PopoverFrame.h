#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// A rounded panel with an arrow at its top edge, as one outline. The arrow takes the topmost arrowHeight points.
class PopoverFrame : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    // Where the tip of the arrow is, in points from the left; kept clear of the corners.
    Q_PROPERTY(double arrowX READ arrowX WRITE setArrowX NOTIFY changed)
    Q_PROPERTY(double arrowHeight READ arrowHeight CONSTANT)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(QColor strokeColor READ strokeColor WRITE setStrokeColor NOTIFY changed)

public:
    explicit PopoverFrame(QQuickItem *parent = nullptr);

    double arrowX() const { return m_arrowX; }
    void setArrowX(double x);
    static double arrowHeight() { return 8; }
    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    QColor strokeColor() const { return m_strokeColor; }
    void setStrokeColor(const QColor &color);

    void paint(QPainter *painter) override;

signals:
    void changed();

private:
    double m_arrowX = 0;
    QColor m_color;
    QColor m_strokeColor;
};

} // namespace quillmere
