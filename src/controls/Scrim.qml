// Dims the window behind a sheet or an alert.
import QtQuick
import Quillmere.Theme

Rectangle {
    color: Theme.scrim

    Behavior on opacity {
        NumberAnimation {
            duration: Motion.standard
            easing.type: Easing.InOutQuad
        }
    }
}
