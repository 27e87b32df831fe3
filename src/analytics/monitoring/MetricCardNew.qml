// A figure of a run, and by how much it has changed. Its owner says what counts as good; the sign does not.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    required property string title
    required property string value
    required property string change
    required property string changeLabel
    required property bool isPositiveChange

    Column {
        x: 20
        anchors.verticalCenter: parent.verticalCenter
        width: card.width - 40
        spacing: 8

        Label {
            width: parent.width
            text: card.title
            font: Theme.system(11, Font.Bold)
            color: Theme.textTertiary
            elide: Text.ElideRight
        }

        TabularLabel {
            text: card.value
            font: Theme.titleFont
            color: "white"
        }

        Row {
            spacing: 6

            Badge {
                anchors.verticalCenter: parent.verticalCenter
                text: card.change
                tint: card.isPositiveChange ? Theme.success : Theme.error
                font: Theme.system(11, Font.Medium)
                horizontalPadding: 6
                verticalPadding: 2
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: card.changeLabel
                font: Theme.captionFont
                color: Theme.textTertiary
            }
        }
    }
}
