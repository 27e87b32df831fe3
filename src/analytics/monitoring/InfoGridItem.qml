// One detail of a run under its label.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: item

    required property string label
    required property string value
    required property string icon
    property color iconColor: Theme.textSecondary

    spacing: 6
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    Row {
        spacing: 6

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: item.icon
            size: 11
            color: item.iconColor
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: item.label
            font: Theme.captionFont
            color: Theme.textTertiary
            Accessible.ignored: true
        }
    }

    Label {
        width: item.width
        text: item.value
        font: Theme.bodyMediumFont
        color: "white"
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
