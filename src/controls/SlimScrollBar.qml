// A scroll bar that lies over its content and shows while it is of use.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Theme

T.ScrollBar {
    id: bar

    implicitWidth: 12
    implicitHeight: 12
    padding: 3
    minimumSize: 0.05
    visible: size < 1
    policy: T.ScrollBar.AsNeeded

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: Color.faded("white", bar.pressed ? 0.45 : bar.hovered ? 0.35 : 0.18)
    }
}
