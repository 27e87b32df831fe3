// A page of the documentation: its title and its parts below one another.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: page

    required property string title

    spacing: 16

    Label {
        width: page.width
        text: page.title
        font: Theme.titleFont
        color: "white"
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
}
