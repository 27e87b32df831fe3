// One hint.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: tip

    required property string text

    implicitHeight: Math.max(lamp.height, words.height)

    SymbolIcon {
        id: lamp

        name: "lightbulb.fill"
        size: 14
        color: Color.yellow
    }

    Label {
        id: words

        x: lamp.width + 8
        y: Math.max(0, Math.round((lamp.height - font.pixelSize * 1.21) / 2))
        width: tip.width - x
        text: tip.text
        font: Theme.captionFont
        color: Theme.textSecondary
        wrapMode: Text.Wrap
    }
}
