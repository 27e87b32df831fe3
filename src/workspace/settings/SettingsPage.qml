// A section of the settings under its title.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: page

    required property string title

    spacing: 24

    Label {
        text: page.title
        font: Theme.titleFont
        color: "white"
        Accessible.role: Accessible.Heading
    }
}
