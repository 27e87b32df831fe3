// Gauges that belong together, under a title.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: section

    required property string title
    required property string icon
    default property alias content: grid.data

    spacing: 16

    Row {
        spacing: 8

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: section.icon
            size: 14
            color: Color.cyan
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: section.title
            font: Theme.tracked(Theme.monospaced(14, Font.Bold), 1.2)
            color: Color.gray
            Accessible.role: Accessible.Heading
        }
    }

    Divider {
        width: section.width
        color: Color.faded(Color.gray, 0.3)
    }

    FlexibleGrid {
        id: grid

        width: section.width
        minimumColumnWidth: 180
        spacing: 20
    }
}
