// One numbered step of the way to a first model.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    required property int step
    required property string title
    required property string description
    required property string icon

    implicitHeight: Math.max(disc.height, words.height, symbol.height) + 40
    Accessible.role: Accessible.StaticText
    Accessible.name: step + ". " + title
    Accessible.description: description

    Rectangle {
        id: disc

        x: 20
        anchors.verticalCenter: parent.verticalCenter
        width: 40
        height: 40
        radius: 20
        color: Theme.accent

        Label {
            anchors.centerIn: parent
            text: card.step
            font: Theme.system(16, Font.Bold)
            color: "white"
            Accessible.ignored: true
        }
    }

    Column {
        id: words

        anchors.left: disc.right
        anchors.leftMargin: 16
        anchors.right: symbol.left
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

    SymbolIcon {
        id: symbol

        anchors.right: parent.right
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        name: card.icon
        size: 24
        color: Theme.textTertiary
    }
}
