// A button of the toolkit's loud look: white on its tint.
import QtQuick
import Quillmere.Theme

ButtonBase {
    id: button

    property color tint: Color.blue

    horizontalPadding: 12
    verticalPadding: 5
    font: Theme.system(13)
    labelColor: "white"
    fillColor: tint
}
