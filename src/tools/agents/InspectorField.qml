// A setting of a node under its name.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: field

    required property string label
    default property alias content: place.data

    spacing: 6

    Label {
        text: field.label
        font: Theme.captionFont
        color: Color.gray
        // The control beside it has the same name.
        Accessible.ignored: true
    }

    Item {
        id: place

        width: parent.width
        height: childrenRect.height
    }
}
