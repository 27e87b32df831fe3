// A row of the sidebar, which selects its destination.
import QtQuick
import Quillmere.App
import Quillmere.Controls
import Quillmere.Theme

PlainButton {
    id: row

    required property int item
    required property int selection

    readonly property bool isSelected: selection !== SidebarItem.None && SidebarItem.rawValue(selection) === SidebarItem.rawValue(item)
    readonly property color tint: isSelected ? "white" : Theme.textSecondary

    text: SidebarItem.title(item)
    horizontalPadding: 12
    verticalPadding: 8
    hasFocusRing: false
    Accessible.selectable: true
    Accessible.selected: isSelected

    background: Rectangle {
        radius: 8
        color: row.isSelected ? Color.hex("1F1F22") : "transparent"

        // The rows touch each other: outside of its row the ring would lie over the next ones.
        FocusRing {
            anchors.margins: 0
            visible: row.visualFocus
            cornerRadius: 4
        }
    }

    contentItem: Row {
        spacing: 12

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            width: 20
            name: SidebarItem.icon(row.item)
            size: 15
            color: row.tint
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: row.text
            font: Theme.system(14, row.isSelected ? Font.Medium : Font.Normal)
            color: row.tint
            Accessible.ignored: true
        }
    }
}
