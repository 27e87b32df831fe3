// A button that is one symbol; its label is what a screen reader says.
import QtQuick
import Quillmere.Controls

ButtonBase {
    id: button

    property alias color: button.labelColor

    symbolSize: 16
    padding: 4
    horizontalPadding: 4
    verticalPadding: 4
    opacity: !enabled ? disabledOpacity : down ? 0.6 : 1

    contentItem: SymbolIcon {
        name: button.symbol
        size: button.symbolSize
        color: button.hovered ? Qt.lighter(button.labelColor, 1.25) : button.labelColor
    }
}
