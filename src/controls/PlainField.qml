// A line of text to type, without a frame of its own: other fields stand on it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

TextInput {
    id: field

    // Its name for assistive programs.
    required property string label
    property string placeholderText
    property color placeholderColor: Theme.textTertiary
    // Shown as dots, and read out to nobody.
    property bool secret: false

    activeFocusOnTab: true
    clip: true
    color: Theme.textPrimary
    font: Theme.system(14)
    selectByMouse: true
    selectionColor: Theme.textSelection
    selectedTextColor: "white"
    echoMode: secret ? TextInput.Password : TextInput.Normal
    passwordCharacter: "\u2022"
    verticalAlignment: TextInput.AlignVCenter
    opacity: enabled ? 1 : 0.5

    // As a text that can be edited the toolkit would read a secret out.
    Accessible.role: secret ? Accessible.StaticText : Accessible.EditableText
    Accessible.editable: true
    Accessible.name: label
    Accessible.description: enabled ? placeholderText : qsTr("Unavailable")
    Accessible.passwordEdit: secret

    Label {
        anchors.fill: parent
        visible: field.text.length === 0 && field.preeditText.length === 0
        text: field.placeholderText
        font: field.font
        color: field.placeholderColor
        elide: Text.ElideRight
        horizontalAlignment: field.horizontalAlignment
        verticalAlignment: field.verticalAlignment
        Accessible.ignored: true
    }

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }
}
