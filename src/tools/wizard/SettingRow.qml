// A setting and its value at the far end.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: row

    required property string label
    required property string value

    implicitHeight: Math.max(name.implicitHeight, figure.implicitHeight) + 24
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    Label {
        id: name

        x: 16
        anchors.verticalCenter: parent.verticalCenter
        text: row.label
        font: Theme.rounded(13)
        color: Color.gray
        Accessible.ignored: true
    }

    Label {
        id: figure

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        text: row.value
        font: Theme.rounded(13, Font.Medium)
        color: Color.blue
        Accessible.ignored: true
    }
}
