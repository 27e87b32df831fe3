// What shows where the keyboard is, a little outside of the control that holds it.
import QtQuick
import Quillmere.Theme

Rectangle {
    id: ring

    // The corner radius of what the ring goes around.
    property real cornerRadius: 6

    anchors.fill: parent
    anchors.margins: -4
    radius: cornerRadius + 4
    color: "transparent"
    border.width: 2
    border.color: Theme.focusRing
}
