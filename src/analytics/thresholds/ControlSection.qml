// A group of controls under its name.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: section

    required property string title
    property real contentSpacing: 12
    default property alias content: content.data

    spacing: 12

    Label {
        text: section.title
        font: Theme.monospaced(10, Font.Bold)
        color: Color.gray
        Accessible.role: Accessible.Heading
    }

    Column {
        id: content

        width: section.width
        spacing: section.contentSpacing
    }
}
