// The table of datasets, heading and all, which scrolls as one. Only the rows on display exist.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: table

    property alias model: list.model

    signal remove(string identifier)

    function startOver() {
        list.startOver();
    }

    function removeRow(place: int, identifier: string, byKeyboard: bool) {
        remove(identifier);
        if (byKeyboard) {
            // The button that was pressed has gone; the next row's takes its place.
            list.forceLayout();
            list.itemAtIndex(Math.min(place, list.count - 1))?.nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason);
        }
    }

    clip: true

    // No higher than what can be seen of it, however long the list is.
    Rectangle {
        readonly property real overhang: 2 * radius

        x: 24
        y: Math.max(heading.y, -overhang)
        width: table.width - 48
        height: Math.min(heading.y + heading.height + list.contentHeight, table.height + overhang) - y
        radius: 12
        color: Theme.surface
        border.width: 1
        border.color: Theme.border
    }

    DatasetsHeading {
        id: heading

        x: 24
        y: list.originY - list.contentY - height
        width: table.width - 48
    }

    CardList {
        id: list

        anchors.fill: parent
        topMargin: 24 + heading.height
        spacing: 0
        accessibleName: qsTr("Datasets")

        delegate: Column {
            id: line

            required property int index
            required property string identifier
            required property string filename
            required property string icon
            required property string purpose
            required property color purposeColor
            required property string size
            required property string uploaded

            width: list.width - 48
            x: 24
            ListView.onPooled: list.retire(line)
            ListView.onReused: visible = true

            DatasetRow {
                width: line.width
                identifier: line.identifier
                filename: line.filename
                icon: line.icon
                purpose: line.purpose
                purposeColor: line.purposeColor
                size: line.size
                uploaded: line.uploaded
                cornerRadius: line.index < list.count - 1 ? 0 : 11
                onRemove: byKeyboard => table.removeRow(line.index, line.identifier, byKeyboard)
            }

            // The last row ends at the table's own edge.
            Divider {
                width: line.width
                opacity: line.index < list.count - 1 ? 1 : 0
            }
        }
    }
}
