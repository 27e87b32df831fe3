// A card with its title, after a symbol where there is one, above what it holds.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

AnalyticsCard {
    id: card

    required property string title
    property string symbol
    property real padding: 12
    default property alias content: content.data

    implicitHeight: content.y + content.height + padding

    Row {
        id: head

        x: card.padding
        y: card.padding
        spacing: 6

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            visible: card.symbol.length > 0
            name: card.symbol
            size: 12
            bold: true
            color: Color.gray
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: card.title
            font: Theme.system(12, Font.Bold)
            color: Color.gray
            Accessible.role: Accessible.Heading
        }
    }

    Item {
        id: content

        x: card.padding
        y: head.y + head.height + 12
        width: card.width - 2 * card.padding
        height: childrenRect.height
    }
}
