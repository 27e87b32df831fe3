// A dot in a colour, what it stands for, and its value.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Row {
    id: indicator

    required property string label
    required property string value
    required property color color

    spacing: 4
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 6
        height: 6
        radius: 3
        color: indicator.color
    }

    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: indicator.label
        font: Theme.rounded(10, Font.Bold)
        color: Color.gray
        Accessible.ignored: true
    }

    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: indicator.value
        font: Theme.rounded(10, Font.Medium)
        color: "white"
        Accessible.ignored: true
    }
}
