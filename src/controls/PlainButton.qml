// A button without a look of its own: its text, or whatever content item it is given, can be pressed.
import QtQuick
import Quillmere.Theme

ButtonBase {
    font: Theme.system(13)
    labelColor: Theme.label
    hoverTint: "transparent"
    pressedOpacity: 0.7
}
