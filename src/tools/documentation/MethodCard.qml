// A training method: what it does, the memory it takes and how fast it goes.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: card

    required property string title
    required property string description
    required property string vram
    required property string speed

    implicitHeight: Math.max(words.height, figures.height) + 32
    radius: 8
    color: Color.faded("black", 0.3)
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ", " + description + ", " + vram + ", " + speed

    Column {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.right: figures.left
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        Label {
            width: parent.width
            text: card.title
            font: Theme.bodyMediumFont
            color: "white"
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            text: card.description
            font: Theme.captionFont
            color: Theme.textSecondary
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }

    Column {
        id: figures

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        Label {
            anchors.right: parent.right
            text: card.vram
            font: Theme.monoFont
            color: Theme.accent
            Accessible.ignored: true
        }

        Label {
            anchors.right: parent.right
            text: card.speed
            font: Theme.system(10)
            color: Theme.textTertiary
            Accessible.ignored: true
        }
    }
}
