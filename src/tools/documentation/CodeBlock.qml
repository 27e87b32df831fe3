// Lines of code on black.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: block

    property alias text: label.text
    property alias font: label.font
    property alias tint: label.color

    implicitHeight: label.height + 32
    radius: 8
    color: "black"

    Label {
        id: label

        x: 16
        y: 16
        width: block.width - 32
        font: Theme.monoFont
        wrapMode: Text.Wrap
    }
}
