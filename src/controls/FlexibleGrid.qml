// Cells in columns of the same width that fill the line: as many as told, or as many as keep to a least width. Each cell takes its
// width by its index, in whole points, so that the last column ends where the grid does.
import QtQuick

Grid {
    id: grid

    property real minimumColumnWidth: 0

    function widthAt(index: int): real {
        const column = index % columns;
        const share = (width + columnSpacing) / columns;
        return Math.max(0, Math.round((column + 1) * share) - Math.round(column * share) - columnSpacing);
    }

    columnSpacing: spacing
    columns: minimumColumnWidth > 0 ? Math.max(1, Math.floor((width + columnSpacing) / (minimumColumnWidth + columnSpacing))) : 1
}
