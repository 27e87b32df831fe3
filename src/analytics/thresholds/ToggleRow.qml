// A small switch at the end of a line that names it.
import Quillmere.Controls
import Quillmere.Theme

Switch {
    id: row

    required property string title
    required property bool isOn

    small: true
    text: title
    checked: isOn
    font: Theme.monospaced(12)
    labelColor: "white"
}
