// A figure in a face whose digits differ in width, each in a cell as wide as a zero, the widest: it does not jump as it
// changes, and only the digits that changed are drawn anew.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls

Row {
    id: figure

    required property string text
    required property font font
    required property color color

    function isDigit(character) {
        return character >= "0" && character <= "9";
    }

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    TextMetrics {
        id: zero

        font: figure.font
        text: "0"
    }

    Repeater {
        model: figure.text.length

        Label {
            required property int index

            width: figure.isDigit(text) ? Math.ceil(zero.advanceWidth) : implicitWidth
            text: figure.text.charAt(index)
            font: figure.font
            color: figure.color
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
