// The toolkit's field with a rounded border.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

PlainField {
    id: field

    font: Theme.system(13)
    horizontalPadding: 8
    verticalPadding: 6
    implicitHeight: 28

    background: Rectangle {
        radius: 6
        color: Theme.controlBackground
        border.width: 1
        border.color: field.activeFocus ? Theme.focusRing : Theme.outline
    }
}
