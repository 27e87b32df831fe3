// One step of the wizard: its title, and what it asks for below.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: step

    required property string title

    spacing: 24

    Label {
        text: step.title
        font: Theme.rounded(20, Font.Bold)
        color: "white"
        Accessible.role: Accessible.Heading
    }
}
