// A modal sheet over the dimmed window. Escape closes the topmost one.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.Popup {
    id: sheet

    property string title
    // A mark of its own that closes it, for content that brings none.
    property bool hasCloseMark: false

    parent: T.Overlay.overlay
    x: Math.round((parent.width - width) / 2)
    y: Math.round((parent.height - height) / 2)
    padding: 1
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    T.Overlay.modal: Rectangle {
        color: Color.faded("black", 0.5)
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Motion.standard
            easing.type: Easing.InOutQuad
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            from: 1
            to: 0
            duration: Motion.standard
            easing.type: Easing.InOutQuad
        }
    }

    background: Rectangle {
        radius: 10
        color: Theme.background
        border.width: 1
        border.color: Theme.hairline
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title
    }

    IconButton {
        z: 1
        parent: sheet.contentItem
        visible: sheet.hasCloseMark
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 16
        symbol: "xmark"
        color: Theme.textSecondary
        label: qsTr("Close")
        onClicked: sheet.close()
    }
}
