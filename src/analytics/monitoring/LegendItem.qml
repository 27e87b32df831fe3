// What a colour of a chart stands for.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Row {
    id: item

    required property color color
    required property string label

    spacing: 6

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: 8
        radius: 4
        color: item.color
    }

    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: item.label
        font: Theme.captionFont
        color: Theme.textSecondary
    }
}
