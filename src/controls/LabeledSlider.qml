// A slider with its name above it, and at the end of the line its value by a printf format.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: item

    required property string title
    required property real value
    required property real from
    required property real to
    required property string format

    signal moved(value: real)

    spacing: 4

    Item {
        width: item.width
        implicitWidth: title.implicitWidth + 8 + figure.implicitWidth
        implicitHeight: title.implicitHeight

        Label {
            id: title

            anchors.left: parent.left
            anchors.right: figure.left
            anchors.rightMargin: 8
            text: item.title
            font: Theme.monospaced(11)
            color: Color.gray
            elide: Text.ElideRight
            // The slider has the same name.
            Accessible.ignored: true
        }

        Label {
            id: figure

            anchors.right: parent.right
            text: Format.real(item.format, item.value)
            font: Theme.monospaced(11)
            color: Color.cyan
        }
    }

    Slider {
        width: item.width
        label: item.title
        value: item.value
        from: item.from
        to: item.to
        tint: Color.cyan
        onMoved: value => item.moved(value)
    }
}
