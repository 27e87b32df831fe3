// How far something has come, from 0 to 1.
import QtQuick
import Quillmere.Theme

Rectangle {
    id: bar

    required property real value
    property color tint: Color.blue
    readonly property real part: Math.max(0, Math.min(value, 1))

    implicitWidth: 100
    implicitHeight: 6
    radius: height / 2
    color: Theme.track
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Progress")
    Accessible.description: qsTr("%1 %").arg(Math.round(part * 100))

    Rectangle {
        width: bar.width * bar.part
        height: bar.height
        radius: bar.radius
        color: bar.tint
    }
}
