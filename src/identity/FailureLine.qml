// Why the sign-in did not go on.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: line

    required property string text

    implicitHeight: message.implicitHeight + 20
    radius: 6
    color: Color.faded(Color.red, 0.1)

    Label {
        id: message

        x: 10
        y: 10
        width: line.width - 20
        text: line.text
        font: Theme.system(12)
        color: Color.red
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
    }
}
