// Cells in columns of the same width that fill the line: as many as told, or as many as keep to a least width. A cell on view has
// the width of its column; one that is hidden takes none.
import QtQuick

Grid {
    id: grid

    property real minimumColumnWidth: 0

    // In whole points, so that the last column ends where the grid does.
    function widthAt(index: int): real {
        const column = Math.max(0, index) % columns;
        const share = (width + columnSpacing) / columns;
        return Math.max(0, Math.round((column + 1) * share) - Math.round(column * share) - columnSpacing);
    }

    columnSpacing: spacing
    columns: minimumColumnWidth > 0 ? Math.max(1, Math.floor((width + columnSpacing) / (minimumColumnWidth + columnSpacing))) : 1
    onChildrenChanged: {
        for (let i = 0; i < children.length; ++i) {
            const cell = children[i];
            cell.width = Qt.binding(() => grid.widthAt(cell.Positioner.index));
        }
    }
}
