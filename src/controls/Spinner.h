#pragma once

#include "platform/Clock.h"

#include <QColor>
#include <QQuickPaintedItem>

namespace quillmere {

// A circular indeterminate progress indicator: eight spokes, the light going round once in two thirds of a second. It moves in
// steps and only while it can be seen, so that it costs next to nothing; where the environment has no animations it stands.
class Spinner : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit Spinner(QQuickItem *parent = nullptr);
    ~Spinner() override;

    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    bool isTurning() const { return m_timer != 0; }

    void paint(QPainter *painter) override;

signals:
    void colorChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void turnWhileSeen();
    void step();

    QColor m_color = Qt::white;
    int m_phase = 0;
    Clock::Timer m_timer = 0;
    QMetaObject::Connection m_windowShown;
};

} // namespace quillmere
