// A step of the sign-in, which fades in and out as it becomes the current one or ceases to be, and takes the focus as it comes.
import QtQuick
import Quillmere.Theme

Column {
    id: column

    required property bool isCurrent
    required property Item initialFocus

    opacity: isCurrent ? 1 : 0
    visible: opacity > 0
    enabled: isCurrent

    onEnabledChanged: if (enabled) {
        initialFocus.forceActiveFocus();
    }
    Component.onCompleted: if (isCurrent) {
        initialFocus.forceActiveFocus();
    }

    Behavior on opacity {
        NumberAnimation {
            duration: Motion.standard
            easing.type: Easing.InOutQuad
        }
    }
}
