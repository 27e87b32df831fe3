// A preference that is on or off.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: row

    property alias text: control.text
    property alias checked: control.checked

    signal toggled

    implicitHeight: control.implicitHeight + 32

    Switch {
        id: control

        x: 16
        y: 16
        width: row.width - 32
        radius: 4
        font: Theme.bodyFont
        labelColor: "white"
        onToggled: row.toggled()
    }
}
