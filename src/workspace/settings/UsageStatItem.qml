// How much of something was used, of how much; red when little is left.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: item

    required property string label
    required property int used
    required property int limit

    readonly property real ratio: used / limit

    spacing: 8

    Label {
        text: item.label.toUpperCase()
        font: Theme.system(10, Font.Bold)
        color: Theme.textTertiary
    }

    Label {
        text: item.used + "/" + item.limit
        font: Theme.monospaced(14)
        color: "white"
    }

    ProgressBar {
        width: 100
        value: item.ratio
        tint: item.ratio > 0.8 ? Theme.error : Theme.accent
        Accessible.name: item.label
    }
}
