// The dark ground of the playground's two texts, below what it is called.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: group

    required property string title
    required property real boxHeight
    property bool isFocused: false
    default property alias content: box.data

    spacing: 8

    Label {
        text: group.title
        font: Theme.system(10, Font.Bold)
        color: Color.gray
    }

    Rectangle {
        id: box

        width: group.width
        height: group.boxHeight
        radius: 4
        color: Color.hex("111111")
        border.width: 1
        border.color: group.isFocused ? Theme.focusRing : Color.hex("333333")
    }
}
