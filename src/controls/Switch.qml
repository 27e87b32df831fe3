// Something that is on or off. Its owner says which, and changes that when it is toggled.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    id: control

    property bool checked: false
    property bool small: false
    property color tint: Color.blue

    signal toggled

    font: small ? Theme.captionFont : Theme.system(13)
    radius: small ? 8 : 11
    pressedOpacity: 1
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onToggleAction: press()
    onClicked: toggled()

    background: null

    contentItem: SwitchLabel {
        text: control.text
        font: control.font
        color: control.labelColor
        spacing: control.spacing
        checked: control.checked
        small: control.small
        hovered: control.hovered
        pressed: control.pressed
        tint: control.tint
    }
}
