// A row of the settings' column: a section to select, or what else can be done there.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    id: row

    property bool selected: false

    horizontalPadding: 16
    verticalPadding: 12
    radius: 8
    spacing: 12
    symbolSize: 16
    font: Theme.bodyMediumFont
    labelColor: selected ? "white" : Theme.textSecondary
    fillColor: selected ? Color.faded(Theme.accent, 0.2) : "transparent"
    hoverTint: "transparent"
    pressedOpacity: 0.7

    contentItem: Row {
        spacing: row.spacing

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            width: 24
            name: row.symbol
            size: row.symbolSize
            color: row.labelColor
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: row.text
            font: row.font
            color: row.labelColor
            Accessible.ignored: true
        }
    }
}
