// One message: who speaks, what is said, and when. The user's stand at the right, the model's at the left.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: row

    required property string content
    required property bool isUser
    required property string time
    required property bool hasEndlessWord

    readonly property real margin: 24
    readonly property real spacing: 12
    readonly property real columnWidth: Math.min(600, width - 2 * margin - avatar.width - spacing)
    readonly property real start: isUser ? avatar.x - spacing - columnWidth : avatar.x + avatar.width + spacing

    function leading(width: real): real {
        return isUser ? start + columnWidth - width : start;
    }

    implicitHeight: stamp.y + stamp.height
    Accessible.role: Accessible.ListItem
    Accessible.name: isUser ? qsTr("You: %1").arg(content) : qsTr("Model: %1").arg(content)
    Accessible.description: time

    Rectangle {
        id: avatar

        x: row.isUser ? row.width - row.margin - width : row.margin
        width: 32
        height: 32
        radius: 16
        color: row.isUser ? Color.faded(Color.blue, 0.1) : Color.hex("1A1A1A")

        SymbolIcon {
            anchors.centerIn: parent
            name: row.isUser ? "person.circle.fill" : "sparkles"
            size: 16
            color: row.isUser ? Color.blue : "white"
        }
    }

    Rectangle {
        id: bubble

        x: row.leading(width)
        width: words.width + 28
        height: words.height + 28
        radius: 16
        color: row.isUser ? Color.hex("222222") : Theme.controlBackground

        Label {
            id: words

            x: 14
            y: 14
            width: Math.min(Math.ceil(implicitWidth), row.columnWidth - 28)
            text: row.content
            font: Theme.system(14)
            color: row.isUser ? "white" : Theme.label
            wrapMode: row.hasEndlessWord ? Text.WrapAnywhere : Text.Wrap
            Accessible.ignored: true
        }
    }

    Label {
        id: stamp

        x: row.leading(width)
        y: bubble.height + 6
        text: row.time
        font: Theme.system(10)
        color: Theme.secondaryLabel
        Accessible.ignored: true
    }
}
