// What stands on a switch: its words, and at its end a knob on a track.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: item

    required property string text
    required property font font
    required property color color
    required property real spacing
    required property bool checked
    required property bool small
    required property bool hovered
    required property bool pressed
    required property color tint

    implicitWidth: (title.visible ? title.implicitWidth + spacing : 0) + track.width
    implicitHeight: Math.max(title.visible ? title.implicitHeight : 0, track.height)

    Label {
        id: title

        anchors.left: parent.left
        anchors.right: track.left
        anchors.rightMargin: item.spacing
        anchors.verticalCenter: parent.verticalCenter
        visible: text.length > 0
        text: item.text
        font: item.font
        color: item.color
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    Rectangle {
        id: track

        readonly property color fill: item.checked ? item.tint : Theme.track

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: item.small ? 26 : 38
        height: item.small ? 15 : 22
        radius: height / 2
        color: item.hovered ? Qt.tint(fill, Theme.hovered) : fill

        Behavior on color {
            ColorAnimation {
                duration: Motion.brief
            }
        }

        Rectangle {
            readonly property real inset: item.small ? 1.5 : 2

            x: item.checked ? track.width - width - inset : inset
            y: inset
            width: track.height - 2 * inset
            height: width
            radius: width / 2
            color: item.pressed ? Qt.tint("white", Color.faded("black", 0.1)) : "white"

            Behavior on x {
                NumberAnimation {
                    duration: Motion.brief
                    easing.type: Easing.InOutQuad
                }
            }
        }
    }
}
