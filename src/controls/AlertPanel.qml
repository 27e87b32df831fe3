// A question over everything else: it takes all input until one of its buttons answers it. Return presses the first button, Escape
// the second.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.Popup {
    id: panel

    required property string title
    required property string text
    // One to three.
    required property list<string> buttons

    signal answered(int index)

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    z: 1
    padding: 24
    // Even, so that in the middle of the window it stands on whole points.
    implicitWidth: 2 * Math.ceil(implicitContentWidth / 2 + padding)
    implicitHeight: 2 * Math.ceil(implicitContentHeight / 2 + padding)
    modal: true
    dim: true
    focus: true
    closePolicy: T.Popup.NoAutoClose

    readonly property FocusReturn focusReturn: FocusReturn {
        popup: panel
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Motion.brief
        }
    }

    T.Overlay.modal: Scrim {}

    background: Rectangle {
        radius: 12
        color: Theme.controlBackground
        border.width: 1
        border.color: Theme.hairline
    }

    contentItem: AlertText {
        title: panel.title
        text: panel.text
        buttons: panel.buttons
        onAnswered: index => panel.answered(index)
    }
}
