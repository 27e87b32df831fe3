// A panel that hangs below the button it is declared in, with an arrow up to it. A click outside or Escape closes it. A click on its
// button is left to the button, which closes it instead of opening it anew.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.Popup {
    id: popover

    // Whoever shows it by a flag clears the flag here, as soon as it begins to close.
    signal dismissed

    // Under the middle of the button, but inside the window.
    x: parent ? (parent.width - width) / 2 : 0
    y: parent ? parent.height + 2 : 0
    margins: 8
    padding: 1
    topPadding: 9
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    onAboutToHide: dismissed()

    readonly property FocusReturn focusReturn: FocusReturn {
        popup: popover
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Motion.popup
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Motion.popup
        }
    }

    background: PopoverFrame {
        // The position that the popover was given may differ from the one it took.
        arrowX: popover.parent ? popover.parent.width / 2 - popover.x : 0
        color: Theme.windowBackground
        strokeColor: Theme.outline
    }
}
