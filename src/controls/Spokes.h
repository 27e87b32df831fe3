#pragma once

#include <QColor>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QTimer>

namespace quillmere {

// A wheel of spokes that turns by one spoke twelve times a second. It turns, and keeps its timer, only while somebody can
// see it: it and all around it visible, its window exposed, and animations on.
class Spokes : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(bool turning READ isTurning NOTIFY turningChanged)

public:
    explicit Spokes(QQuickItem *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    bool isTurning() const { return m_timer.isActive(); }

    void paint(QPainter *painter) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void colorChanged();
    void turningChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    void watch(QQuickWindow *window);
    void turnWhileSeen();

    QColor m_color = Qt::white;
    QPointer<QQuickWindow> m_window;
    QTimer m_timer;
    int m_step = 0;
};

} // namespace quillmere
