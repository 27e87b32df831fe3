// One figure of the dataset.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

AnalyticsCard {
    id: card

    required property string title
    required property string value
    required property string icon
    required property color tint

    implicitHeight: column.height + 24
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ": " + value

    Column {
        id: column

        x: 12
        y: 12
        width: card.width - 24
        spacing: 8

        SymbolIcon {
            name: card.icon
            size: 16
            color: card.tint
        }

        Label {
            width: parent.width
            text: card.value
            font: Theme.monospaced(24, Font.Bold)
            color: "white"
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            text: card.title
            font: Theme.system(10, Font.Bold)
            color: Color.gray
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
