// A bar that lies over the canvas and keeps the pointer from what is below it.
import QtQuick

Rectangle {
    MouseArea {
        anchors.fill: parent
    }

    HoverHandler {}
}
