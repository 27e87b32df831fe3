// A link to a web page.
import QtQuick
import Quillmere.Controls
import Quillmere.Platform
import Quillmere.Theme

PlainButton {
    id: button

    required property string title
    required property string icon
    required property string url

    text: title
    horizontalPadding: 16
    verticalPadding: 8
    radius: 8
    labelColor: Theme.textTertiary
    Accessible.role: Accessible.Link
    onClicked: ExternalLinks.open(url)

    contentItem: Item {
        implicitHeight: label.implicitHeight

        SymbolIcon {
            id: symbol

            anchors.verticalCenter: parent.verticalCenter
            width: 20
            name: button.icon
            size: 14
            color: button.labelColor
        }

        Label {
            id: label

            x: symbol.width + 12
            anchors.verticalCenter: parent.verticalCenter
            text: button.text
            font: Theme.captionFont
            color: button.labelColor
            Accessible.ignored: true
        }

        SymbolIcon {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            name: "arrow.up.right"
            size: 10
            color: button.labelColor
        }
    }
}
