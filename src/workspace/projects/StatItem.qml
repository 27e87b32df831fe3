// A count of what a project holds, behind its symbol.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Row {
    id: item

    required property string icon
    required property string value
    required property string label

    baselineOffset: figure.y + figure.baselineOffset
    spacing: 4

    SymbolIcon {
        anchors.verticalCenter: parent.verticalCenter
        name: item.icon
        size: 10
        color: Theme.textTertiary
    }

    Label {
        id: figure

        anchors.verticalCenter: parent.verticalCenter
        text: item.value
        font: Theme.system(12, Font.Medium)
        color: "white"
    }

    Label {
        anchors.baseline: figure.baseline
        text: item.label
        font: Theme.system(10)
        color: Theme.textTertiary
    }
}
