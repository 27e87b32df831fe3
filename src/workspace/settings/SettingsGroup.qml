// Settings that belong together, under their heading.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: group

    required property string heading

    spacing: 16

    Label {
        text: group.heading
        font: Theme.bodyMediumFont
        color: Theme.textSecondary
        Accessible.role: Accessible.Heading
    }
}
