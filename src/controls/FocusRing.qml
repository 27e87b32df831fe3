// The mark of keyboard focus, just outside of what has it.
import QtQuick
import Quillmere.Theme

Rectangle {
    property real around: 6 // corner radius of what it goes around

    anchors.fill: parent
    anchors.margins: -3
    radius: around + 3
    color: "transparent"
    border.width: 2
    border.color: Theme.focusRing
}
