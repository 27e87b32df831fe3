// One line of what the program offers: a symbol and a few words.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Row {
    id: row

    required property string icon
    required property string text

    spacing: 12

    SymbolIcon {
        name: row.icon
        size: 14
        color: Theme.cyan
        width: 24
        anchors.verticalCenter: parent.verticalCenter
    }

    Label {
        text: row.text
        font: Theme.system(13)
        color: Theme.textSecondary
        anchors.verticalCenter: parent.verticalCenter
    }
}
