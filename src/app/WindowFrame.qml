// What a frameless window has in the place of a frame: the strip with its marks, and the edges.
import QtQuick
import Quillmere.Controls

Item {
    id: frame

    required property Window window

    TitleStrip {
        width: frame.width
        window: frame.window
    }

    ResizeEdges {
        anchors.fill: parent
        window: frame.window
    }
}
