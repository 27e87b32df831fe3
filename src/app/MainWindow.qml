// The one window: frameless, its content up to the top edge, its own marks and edges over it.
import QtQuick
import Quillmere.App
import Quillmere.Platform
import Quillmere.Theme

Window {
    id: window

    // Its first frame is on the screen, and the faces are known.
    property bool isUp: false

    title: qsTr("Quillmere Studio")
    flags: Qt.Window | Qt.FramelessWindowHint
    width: Screen.width > 0 ? Math.max(Screen.width, minimumWidth) : 1440
    height: Screen.height > 0 ? Math.max(Screen.height, minimumHeight) : 900
    minimumWidth: 1200
    minimumHeight: 800
    color: Theme.background
    visible: true

    onIsUpChanged: frame.setSource("WindowFrame.qml", {window: window})

    // For good: a window that comes to another screen keeps its size.
    Component.onCompleted: {
        width = width;
        height = height;
    }

    RootView {
        anchors.fill: parent
        hasFaces: window.isUp
    }

    // From the first of them on.
    Loader {
        active: FileDialog.isUp || Alerts.isUp || status === Loader.Ready
        source: "WindowDialogs.qml"
    }

    // After the first frame, of which its types would take a tenth of the time. It lies over sheets and alerts, whose overlay
    // has a z of a million and one.
    Loader {
        id: frame

        anchors.fill: parent
        z: 1000002
    }
}
