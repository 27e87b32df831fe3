// One of the marks by which a window is minimised, zoomed and closed.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    id: mark

    required property string label

    implicitWidth: 40
    implicitHeight: 40
    activeFocusOnTab: false
    accessibleName: label
    symbolSize: 12
    labelColor: hovered ? "white" : Theme.textSecondary
    fillColor: Color.faded("white", 0.06)
    pressedOpacity: 0.7

    background: Item {
        Rectangle {
            anchors.centerIn: parent
            width: 24
            height: 24
            radius: 12
            color: mark.hovered ? Qt.tint(mark.fillColor, mark.hoverTint) : mark.fillColor
        }
    }
}
