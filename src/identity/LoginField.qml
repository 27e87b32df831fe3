// A field of the sign-in form, outlined, that hands out its text as it stands.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: field

    required property string label
    required property string placeholder
    property alias text: input.text
    property alias font: input.font

    // The text has become another, whoever changed it: a hand, an assistive program, or the owner.
    signal textEdited
    signal accepted

    implicitHeight: input.implicitHeight + 28

    Rectangle {
        anchors.fill: parent
        radius: 8
        color: Color.faded("white", 0.05)
        border.width: 1
        border.color: input.activeFocus ? Theme.focusRing : Theme.outline
    }

    PlainField {
        id: input

        x: 14
        y: 14
        width: field.width - 28
        focus: true
        label: field.label
        placeholderText: field.placeholder
        onTextChanged: field.textEdited()
        onAccepted: field.accepted()
    }
}
