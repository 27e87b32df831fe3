// One format of file that can be uploaded.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: badge

    required property string format
    required property string icon

    implicitWidth: content.implicitWidth + 24
    implicitHeight: content.implicitHeight + 12
    radius: 6
    color: Theme.surface
    border.width: 1
    border.color: Theme.border

    Row {
        id: content

        x: 12
        y: 6
        spacing: 8

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: badge.icon
            size: 12
            color: Theme.textSecondary
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: badge.format
            font: Theme.system(12, Font.Medium)
            color: Theme.textSecondary
        }
    }
}
