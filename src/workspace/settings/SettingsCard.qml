// A panel as high as what stands on it, in a column with air around it.
import QtQuick
import Quillmere.Controls

Card {
    id: card

    property real padding: 0
    property alias spacing: column.spacing
    default property alias content: column.data

    implicitHeight: column.implicitHeight + 2 * padding

    Column {
        id: column

        x: card.padding
        y: card.padding
        width: card.width - 2 * card.padding
    }
}
