// A figure under its label.
import QtQuick
import Quillmere.Theme

Column {
    id: figure

    required property string label
    required property string value

    spacing: 2

    Label {
        text: figure.label.toUpperCase()
        font: Theme.system(9, Font.Bold)
        color: Theme.textTertiary
    }

    Label {
        text: figure.value
        font: Theme.monoFont
        color: "white"
    }
}
