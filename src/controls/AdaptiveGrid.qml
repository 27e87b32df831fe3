// Cells in as many columns as fit, all of one width, which share the whole width between them. A cell that is no smaller than
// its column binds its width to cellWidth.
import QtQuick

Grid {
    id: grid

    property real minimumCellWidth: 0
    // Whole points, so that edges are sharp.
    readonly property real cellWidth: Math.floor((width + spacing) / columns) - spacing

    columns: Math.max(1, Math.floor((width + spacing) / (minimumCellWidth + spacing)))
}
