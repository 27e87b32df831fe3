// A field of the toolkit's framed look.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: box

    property alias label: field.label
    property alias placeholderText: field.placeholderText
    property alias text: field.text
    property alias font: field.font
    property alias secret: field.secret
    readonly property alias field: field

    // The text has become another, whoever changed it: a hand, an assistive program, or the owner.
    signal textEdited
    signal accepted

    function clear() {
        field.clear();
    }

    implicitWidth: 200
    implicitHeight: field.implicitHeight + 12
    radius: 6
    color: Theme.controlBackground
    border.width: field.activeFocus ? 2 : 1
    border.color: field.activeFocus ? Theme.focusRing : Theme.outline
    // Of a secret the toolkit reads out nothing, its name neither; so the name stands on what is around it.
    Accessible.role: Accessible.Grouping
    Accessible.name: label
    Accessible.ignored: !secret

    PlainField {
        id: field

        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        label: ""
        font: Theme.system(13)
        onTextChanged: box.textEdited()
        onAccepted: box.accepted()
    }
}
