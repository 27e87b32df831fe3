// A symbol that can be pressed, with a name for those who do not see it.
import QtQuick
import Quillmere.Theme

ButtonBase {
    id: button

    required property string label
    property real size: 16
    property color color: Theme.label

    padding: 4
    hoverTint: "transparent"
    accessibleName: label
    symbolSize: size
    labelColor: color
    pressedOpacity: 0.7
}
