// The window of the gallery: one of its pages, below marks of its own.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Window {
    id: window

    required property url page

    width: 1200
    height: 900
    flags: Qt.Window | Qt.FramelessWindowHint
    color: Theme.background
    visible: true
    title: "Gallery"

    Loader {
        anchors.fill: parent
        source: window.page
    }

    TitleStrip {
        width: window.width
        window: window
    }

    ResizeEdges {
        anchors.fill: parent
        window: window
    }
}
