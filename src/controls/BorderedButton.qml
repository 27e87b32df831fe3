// A button of the toolkit's quiet look; a tint colours its label.
import QtQuick
import Quillmere.Theme

ButtonBase {
    id: button

    property color tint: Theme.label

    horizontalPadding: 12
    verticalPadding: 5
    font: Theme.system(13)
    labelColor: tint
    fillColor: Theme.bordered
}
