// The window's own marks: minimise, zoom, close.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Row {
    id: marks

    required property Window window
    readonly property bool zoomed: window.visibility === Window.Maximized || window.visibility === Window.FullScreen

    function zoom() {
        if (zoomed) {
            window.showNormal();
        } else {
            window.showMaximized();
        }
    }

    rightPadding: 6

    WindowMark {
        symbol: "minus"
        label: qsTr("Minimize")
        onClicked: marks.window.showMinimized()
    }

    WindowMark {
        id: zoomMark

        label: marks.zoomed ? qsTr("Restore") : qsTr("Zoom")
        onClicked: marks.zoom()

        contentItem: Item {
            Rectangle {
                anchors.centerIn: parent
                width: 9
                height: 9
                radius: 2
                color: "transparent"
                border.width: 1
                border.color: zoomMark.labelColor
            }
        }
    }

    WindowMark {
        symbol: "xmark"
        label: qsTr("Close")
        hoverTint: Theme.error
        onClicked: marks.window.close()
    }
}
