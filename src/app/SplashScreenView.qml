// The first thing seen. Its first frame shows the background alone, since the brand fades in from nothing; so that frame waits neither
// for the faces nor for what the brand is made of.
import QtQuick
import Quillmere.Theme

Rectangle {
    id: view

    property bool hasFaces: false

    color: Theme.background
    implicitWidth: 800
    implicitHeight: 600

    Loader {
        anchors.centerIn: parent
        active: view.hasFaces
        source: "SplashBrand.qml"
    }
}
