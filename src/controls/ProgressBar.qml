// A horizontal bar that is filled up to its value, from 0 to 1.
import QtQuick
import Quillmere.Theme

Rectangle {
    id: bar

    required property real value
    property color tint: Theme.accent

    implicitWidth: 80
    implicitHeight: 6
    radius: height / 2
    color: Color.faded("white", 0.1)
    Accessible.role: Accessible.ProgressBar
    Accessible.name: Math.round(100 * value) + "%"

    Rectangle {
        readonly property real share: Math.max(0, Math.min(1, bar.value))

        visible: share > 0
        width: Math.max(bar.height, share * bar.width)
        height: bar.height
        radius: bar.radius
        color: bar.tint
    }
}
