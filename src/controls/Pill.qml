// One choice of a filter row. The arrow keys go from pill to pill.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    id: pill

    property bool selected: false

    font: Theme.system(12, Font.Medium)
    fillColor: selected ? Theme.accent : hovered ? Theme.border : Theme.surface
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: selected
    Keys.onLeftPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onRightPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
}
