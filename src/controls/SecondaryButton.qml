// The button of what else a screen offers: white on the colour of borders.
import QtQuick
import Quillmere.Theme

ButtonBase {
    horizontalPadding: 16
    verticalPadding: 8
    labelColor: "white"
    fillColor: Theme.border
    pressedOpacity: 0.8
}
