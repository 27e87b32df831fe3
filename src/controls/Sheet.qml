// A panel over the dimmed window that takes all input until it is closed. Escape closes the topmost one. What stands in it is made
// when it opens and gone when it has closed.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.Popup {
    id: sheet

    // Its name for assistive programs.
    required property string title
    property Component content
    property color fillColor: Theme.background
    property bool hasCloseMark: false

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    // Even, so that in the middle of the window it stands on whole points.
    implicitWidth: 2 * Math.ceil(contentWidth / 2)
    implicitHeight: 2 * Math.ceil(contentHeight / 2)
    modal: true
    dim: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    readonly property FocusReturn focusReturn: FocusReturn {
        popup: sheet
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
            to: 0
            duration: Motion.standard
            easing.type: Easing.InOutQuad
        }
    }

    T.Overlay.modal: Scrim {}

    background: Rectangle {
        radius: 10
        color: sheet.fillColor
        border.width: 1
        border.color: Theme.hairline
    }

    // As large as its content wants to be, where contentWidth and contentHeight are not told.
    contentItem: SheetBody {
        title: sheet.title
        content: sheet.visible ? sheet.content : null
        hasCloseMark: sheet.hasCloseMark
        onCloseMarkClicked: sheet.close()
    }
}
