// A figure of a model under its label.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: item

    required property string label
    required property string value

    spacing: 2

    Label {
        text: item.label.toUpperCase()
        font: Theme.system(9, Font.Bold)
        color: Theme.textTertiary
    }

    Label {
        text: item.value
        font: Theme.monoFont
        color: "white"
    }
}
