// A field of the sign-in form, outlined, that hands out what is typed and never changes it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: field

    required property string label
    required property string placeholder
    property alias text: input.text
    property alias font: input.font

    signal edited(string text)
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
        onTextEdited: field.edited(input.text)
        onAccepted: field.accepted()
    }
}
