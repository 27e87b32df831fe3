// How far something has come, from 0 to 1.
import QtQuick
import Quillmere.Theme

Rectangle {
    id: bar

    required property real value
    property color tint: Color.blue
    // The ends of the scale, under the names by which assistive programs ask for them.
    readonly property real minimumValue: 0
    readonly property real maximumValue: 1

    implicitWidth: 100
    implicitHeight: 6
    radius: height / 2
    color: Theme.track
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Progress")

    Rectangle {
        width: bar.width * Math.max(0, Math.min(bar.value, 1))
        height: bar.height
        radius: bar.radius
        color: bar.tint
    }
}
