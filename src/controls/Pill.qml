// One choice of a filter. Its owner says whether it is selected, and changes that when it is clicked.
import QtQuick
import Quillmere.Theme

ButtonBase {
    id: pill

    property bool selected: false

    horizontalPadding: 16
    verticalPadding: 8
    font: Theme.system(12, Font.Medium)
    labelColor: "white"
    hoverTint: "transparent"
    fillColor: selected ? Theme.accent : Theme.surface
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.onToggleAction: press()
}
