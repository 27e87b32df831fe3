// A field of the sign-in form, outlined: it shows what its owner holds, and hands out what becomes of that as it stands.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: field

    required property string label
    required property string placeholder
    required property string value
    property alias font: input.font

    signal typed(text: string)
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
        text: field.value
        onTextChanged: {
            if (text === field.value) {
                return;
            }
            if (field.enabled) {
                field.typed(text);
            } else {
                // An assistive program may still know the field of a step that is over.
                text = Qt.binding(() => field.value);
            }
        }
        onAccepted: field.accepted()
    }
}
