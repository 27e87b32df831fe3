// A single-line text field without any chrome. Text shows as typed.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.TextField {
    id: field

    property string label
    // Shown as dots, and unknown to screen readers.
    property bool secret: false

    implicitWidth: 200
    implicitHeight: Math.ceil(metrics.height)
    padding: 0
    font: Theme.system(14)
    color: "white"
    placeholderTextColor: Theme.textTertiary
    selectionColor: Color.faded(Color.blue, 0.6)
    selectedTextColor: "white"
    selectByMouse: true
    echoMode: secret ? TextInput.Password : TextInput.Normal
    passwordCharacter: "•"
    verticalAlignment: TextInput.AlignVCenter
    Accessible.role: Accessible.EditableText
    Accessible.name: label.length > 0 ? label : placeholderText
    Accessible.passwordEdit: secret

    FontMetrics {
        id: metrics

        font: field.font
    }

    Label {
        anchors.fill: parent
        visible: field.length === 0 && field.preeditText.length === 0
        text: field.placeholderText
        font: field.font
        color: field.placeholderTextColor
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }
}
