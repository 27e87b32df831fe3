// The floor: a window of the same kind and size with nothing in it.
import QtQuick

Window {
    flags: Qt.Window | Qt.FramelessWindowHint
    width: Screen.width
    height: Screen.height
    color: "#09090B"
    visible: true
}
