// The top strip of a window without a frame: it moves the window, a double click zooms it, and the marks stand at its end. It lies
// over sheets and alerts, whose overlay has a z of a million and one.
import QtQuick
import Quillmere.Controls

Item {
    id: strip

    required property Window window

    implicitHeight: 40
    z: 1000002

    // A mouse area and no drag handler: after a system move the release of the button never arrives there.
    MouseArea {
        id: area

        property point start

        anchors.fill: parent
        onPressed: mouse => start = Qt.point(mouse.x, mouse.y)
        onPositionChanged: mouse => {
            if (Math.abs(mouse.x - start.x) + Math.abs(mouse.y - start.y) > 5) {
                strip.window.startSystemMove();
            }
        }
        onDoubleClicked: marks.zoom()
    }

    WindowMarks {
        id: marks

        anchors.right: parent.right
        window: strip.window
    }
}
