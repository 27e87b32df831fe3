// A control of the run under its label.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: group

    required property string label
    default property alias content: area.data

    spacing: 8

    Label {
        text: group.label
        font: Theme.monospaced(11)
        color: Color.gray
        // The control has the same name.
        Accessible.ignored: true
    }

    Item {
        id: area

        width: group.width
        implicitHeight: childrenRect.height
    }
}
