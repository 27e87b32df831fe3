#pragma once

#include <QQuickPaintedItem>

namespace quillmere {

// The grid behind a workflow: squares of 40 points times `gridScale`, counted from the top left corner.
class GridBackground : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    // A "scale" of its own would hide the item's.
    Q_PROPERTY(double gridScale READ gridScale WRITE setGridScale NOTIFY gridScaleChanged)

public:
    using QQuickPaintedItem::QQuickPaintedItem;

    double gridScale() const { return m_gridScale; }
    void setGridScale(double scale);

    void paint(QPainter *painter) override;

signals:
    void gridScaleChanged();

private:
    double m_gridScale = 1;
};

} // namespace quillmere
