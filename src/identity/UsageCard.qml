// How much of something has been used.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: card

    required property string title
    required property string value
    // 0 to 1.
    required property real progress
    required property color tint

    implicitHeight: column.implicitHeight + 40
    radius: 16
    color: Color.faded("white", 0.05)

    Column {
        id: column

        x: 20
        y: 20
        width: card.width - 40
        spacing: 12

        Label {
            width: parent.width
            text: card.title
            font: Theme.system(12)
            color: Color.gray
            elide: Text.ElideRight
        }

        Label {
            width: parent.width
            text: card.value
            font: Theme.system(20, Font.DemiBold)
            color: "white"
            elide: Text.ElideRight
        }

        ProgressBar {
            width: parent.width
            value: card.progress
            tint: card.tint
            Accessible.name: card.title
        }
    }
}
