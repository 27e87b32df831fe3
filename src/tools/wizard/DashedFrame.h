#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace quillmere {

// A rounded rectangle with a dashed stroke that lies whole inside of it. Painted into an image, since a dashed outline of another
// kind is jagged under OpenGL or missing in the software renderer.
class DashedFrame : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(QColor strokeColor READ strokeColor WRITE setStrokeColor NOTIFY changed)
    // All in points. Dashes and the gaps between them are of one length, by a hair's breadth longer or shorter than told, so that
    // a whole number of them goes around.
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY changed)
    Q_PROPERTY(double strokeWidth READ strokeWidth WRITE setStrokeWidth NOTIFY changed)
    Q_PROPERTY(double dash READ dash WRITE setDash NOTIFY changed)

public:
    explicit DashedFrame(QQuickItem *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color) { set(m_color, color); }
    QColor strokeColor() const { return m_strokeColor; }
    void setStrokeColor(const QColor &color) { set(m_strokeColor, color); }
    double radius() const { return m_radius; }
    void setRadius(double radius) { set(m_radius, radius); }
    double strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(double width) { set(m_strokeWidth, width); }
    double dash() const { return m_dash; }
    void setDash(double dash) { set(m_dash, dash); }

    void paint(QPainter *painter) override;

signals:
    void changed();

private:
    template <typename T> void set(T &field, const T &value)
    {
        if (field != value) {
            field = value;
            emit changed();
        }
    }

    QColor m_color = Qt::transparent;
    QColor m_strokeColor = Qt::white;
    double m_radius = 0;
    double m_strokeWidth = 1;
    double m_dash = 4;
};

} // namespace quillmere
