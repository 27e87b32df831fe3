// The top strip of the frameless window: it moves the window, and holds its marks at the right end.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: strip

    required property Window window
    readonly property bool isZoomed: window.visibility === Window.Maximized

    function zoom() {
        if (isZoomed) {
            window.showNormal();
        } else {
            window.showMaximized();
        }
    }

    height: 40

    // Not a drag handler: after a move by the system its release never comes, and the next press elsewhere would move on.
    MouseArea {
        property point pressedAt

        anchors.fill: parent
        onPressed: mouse => pressedAt = Qt.point(mouse.x, mouse.y)
        onPositionChanged: mouse => {
            if (pressed && Math.abs(mouse.x - pressedAt.x) + Math.abs(mouse.y - pressedAt.y) > 5) {
                strip.window.startSystemMove();
            }
        }
        onDoubleClicked: strip.zoom()
    }

    Row {
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        WindowMark {
            symbol: "minus"
            label: qsTr("Minimise")
            onClicked: strip.window.showMinimized()
        }

        WindowMark {
            id: zoomMark

            label: strip.isZoomed ? qsTr("Restore") : qsTr("Zoom")
            onClicked: strip.zoom()

            Rectangle {
                anchors.centerIn: parent
                width: 10
                height: 10
                radius: 2
                color: "transparent"
                border.width: 1.5
                border.color: zoomMark.hovered ? "white" : Theme.textSecondary
            }
        }

        WindowMark {
            symbol: "xmark"
            label: qsTr("Close")
            closes: true
            onClicked: strip.window.close()
        }
    }
}
