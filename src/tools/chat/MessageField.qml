// Where a message is typed: Return sends it, Shift and Return break the line.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: box

    property alias text: field.text
    readonly property alias field: field.field

    signal textEdited
    signal accepted

    implicitHeight: field.implicitHeight + 24
    radius: 12
    color: Theme.controlBackground
    border.width: box.field.activeFocus ? 1 : 0
    border.color: Theme.focusRing

    GrowingField {
        id: field

        anchors.fill: parent
        anchors.margins: 12
        label: qsTr("Message")
        placeholderText: qsTr("Type your message...")
        maximumLines: 5
        returnAccepts: true
        onTextEdited: box.textEdited()
        onAccepted: box.accepted()
    }

    // The air around the text belongs to the field too.
    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }

    TapHandler {
        onTapped: box.field.forceActiveFocus(Qt.MouseFocusReason)
    }
}
