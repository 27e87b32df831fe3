// A category of the documentation, which opens its page.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

PlainButton {
    id: row

    required property int category
    required property bool isSelected

    text: DocCategories.title(category)
    horizontalPadding: 16
    verticalPadding: 10
    radius: 8
    labelColor: isSelected ? "white" : Theme.textSecondary
    fillColor: isSelected ? Color.faded(Theme.accent, 0.2) : "transparent"
    Accessible.selectable: true
    Accessible.selected: isSelected

    contentItem: Item {
        implicitHeight: label.implicitHeight

        SymbolIcon {
            id: symbol

            anchors.verticalCenter: parent.verticalCenter
            width: 20
            name: DocCategories.icon(row.category)
            size: 14
            color: row.labelColor
        }

        Label {
            id: label

            x: symbol.width + 12
            width: parent.width - x
            anchors.verticalCenter: parent.verticalCenter
            text: row.text
            font: Theme.bodyFont
            color: row.labelColor
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
