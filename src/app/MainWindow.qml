// The one window: frameless, its content up to the top edge, its own marks and edges over it.
import QtQuick
import Quillmere.App
import Quillmere.Controls
import Quillmere.Platform
import Quillmere.Theme

Window {
    id: window

    title: qsTr("Quillmere Studio")
    flags: Qt.Window | Qt.FramelessWindowHint
    width: Screen.width > 0 ? Math.max(Screen.width, minimumWidth) : 1440
    height: Screen.height > 0 ? Math.max(Screen.height, minimumHeight) : 900
    minimumWidth: 1200
    minimumHeight: 800
    color: Theme.background
    visible: true

    RootView {
        anchors.fill: parent
    }

    // From the first of them on.
    Loader {
        active: FileDialog.isUp || Alerts.isUp || status === Loader.Ready
        source: "WindowDialogs.qml"
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
