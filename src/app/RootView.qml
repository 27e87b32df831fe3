// What the window shows: the splash, then the login screen or the main window by the session alone.
import QtQuick
import Quillmere.App
import Quillmere.Identity
import Quillmere.Theme

Item {
    id: view

    required property bool hasFaces
    readonly property bool showSplash: root.showSplash

    Component.onCompleted: root.appear()

    RootViewState {
        id: root
    }

    // By address, so that nothing of either screen is loaded before it is the one to show.
    Loader {
        id: content

        anchors.fill: parent
        active: !view.showSplash
        source: AuthManager.isAuthenticated ? "ContentView.qml" : "qrc:/qt/qml/Quillmere/Identity/LoginView.qml"
        opacity: view.showSplash ? 0 : 1

        Behavior on opacity {
            NumberAnimation {
                duration: Motion.standard
                easing.type: Easing.InOutQuad
            }
        }
    }

    Loader {
        id: splash

        anchors.fill: parent
        active: opacity > 0
        opacity: view.showSplash ? 1 : 0
        sourceComponent: SplashScreenView {}

        Behavior on opacity {
            NumberAnimation {
                duration: Motion.standard
                easing.type: Easing.InOutQuad
            }
        }
    }

    Binding {
        target: splash.item
        when: splash.status === Loader.Ready
        property: "hasFaces"
        value: view.hasFaces
    }
}
