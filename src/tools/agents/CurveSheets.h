#pragma once

#include <QLineF>
#include <QList>
#include <QSGNode>
#include <QSize>
#include <QTransform>

#include <optional>
#include <vector>

class QQuickWindow;

namespace quillmere {

// The curves between the nodes of a workflow, as the scene graph shows them. Those that moved last stand on a sheet of their own, so
// that a drag paints them and no others, however many others cross their way. All curves are of one colour, so that it makes no
// difference which lies on top.
class CurveSheets : public QSGNode {
public:
    // Where each curve begins and ends; none is not shown.
    using Ends = QList<std::optional<QLineF>>;

    // How points of the workflow become pixels of the item.
    struct Projection {
        QTransform toPixels;
        QSize pixels;
        double pixelsPerPoint = 1;

        bool operator==(const Projection &) const = default;
    };

    CurveSheets();

    void show(const Ends &curves, const Projection &projection, QQuickWindow &window);

private:
    class Sheet;

    Sheet *m_resting; // both belong to the tree
    Sheet *m_moving;
    Ends m_curves;
    std::vector<bool> m_isMoving;
};

} // namespace quillmere
