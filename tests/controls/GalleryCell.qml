// One kind of control in its states, in a row. What a picture shows hovered, pressed or focused is found by these names.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: cell

    required property string title
    default property alias items: row.data

    spacing: 10

    Label {
        text: cell.title
        font: Theme.system(11, Font.Medium)
        color: Theme.textTertiary
    }

    Row {
        id: row

        spacing: 16
    }
}
