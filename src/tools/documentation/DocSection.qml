// A titled block in a page.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: section

    required property string title
    property alias spacing: body.spacing
    default property alias content: body.data

    implicitHeight: body.y + body.height + 20
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    Label {
        id: heading

        x: 20
        y: 20
        width: section.width - 40
        text: section.title
        font: Theme.bodyMediumFont
        color: "white"
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }

    Column {
        id: body

        x: 20
        y: heading.y + heading.height + 12
        width: section.width - 40
        spacing: 12
    }
}
