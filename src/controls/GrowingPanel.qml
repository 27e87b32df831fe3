// The panel behind what grows under the pointer. It is drawn in the size that the grown item has, not scaled with it: the software
// renderer leaves seams in a rounded rectangle that is scaled. It grows by whole points on every side.
import QtQuick

Item {
    id: panel

    // The scale of what it stands in.
    required property real grown
    property alias radius: shape.radius
    property alias color: shape.color
    // An alias of these would bring this Qt down.
    property color strokeColor: "transparent"
    property real strokeWidth: 1

    Rectangle {
        id: shape

        anchors.centerIn: parent
        width: panel.width + 2 * Math.round(panel.width * (panel.grown - 1) / 2)
        height: panel.height + 2 * Math.round(panel.height * (panel.grown - 1) / 2)
        scale: 1 / panel.grown
        border.width: panel.strokeWidth
        border.color: panel.strokeColor
    }
}
