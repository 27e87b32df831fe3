// The button of what a screen is there for: black on white.
import QtQuick
import Quillmere.Theme

ButtonBase {
    horizontalPadding: 16
    verticalPadding: 8
    labelColor: "black"
    fillColor: "white"
    hoverTint: Color.faded("black", 0.08)
    pressedOpacity: 0.9
}
