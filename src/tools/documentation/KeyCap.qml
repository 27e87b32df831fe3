// One key of a keyboard.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: cap

    required property string text

    implicitWidth: Math.max(implicitHeight, label.implicitWidth + 16)
    implicitHeight: label.implicitHeight + 8
    radius: 4
    color: Theme.surface
    border.width: 1
    border.color: Theme.border

    Label {
        id: label

        anchors.centerIn: parent
        text: cap.text
        font: Theme.system(12, Font.Medium)
        color: "white"
    }
}
