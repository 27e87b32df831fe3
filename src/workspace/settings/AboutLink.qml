// A link out of the program.
import QtQuick
import Quillmere.Controls
import Quillmere.Platform
import Quillmere.Theme

Item {
    id: link

    required property string title
    required property string icon
    required property string url

    implicitHeight: 52

    // A little inside of the row, so that the focus ring stays on the card.
    PlainButton {
        id: button

        anchors.fill: parent
        anchors.margins: 6
        horizontalPadding: 10
        text: link.title
        Accessible.role: Accessible.Link
        onClicked: ExternalLinks.open(link.url)

        contentItem: Item {
            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                width: 24
                name: link.icon
                size: 16
                color: Theme.accent
            }

            Label {
                x: 36
                anchors.verticalCenter: parent.verticalCenter
                text: button.text
                font: Theme.bodyFont
                color: "white"
                Accessible.ignored: true
            }

            SymbolIcon {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                name: "arrow.up.right"
                size: 12
                color: Theme.textTertiary
            }
        }
    }
}
