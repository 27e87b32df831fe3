// One of the three counts above the jobs.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    required property string title
    required property string value
    required property string icon
    required property color tint

    implicitHeight: 76
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ": " + value

    Row {
        x: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 16

        Rectangle {
            width: 44
            height: 44
            radius: 8
            color: Color.faded(card.tint, 0.15)

            SymbolIcon {
                anchors.centerIn: parent
                name: card.icon
                size: 20
                color: card.tint
            }
        }

        Column {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            Label {
                text: card.value
                font: Theme.headingFont
                color: "white"
                Accessible.ignored: true
            }

            Label {
                text: card.title
                font: Theme.captionFont
                color: Theme.textSecondary
                Accessible.ignored: true
            }
        }
    }
}
