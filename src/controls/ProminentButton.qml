// The toolkit's prominent bordered button, filled with its tint.
import Quillmere.Controls
import Quillmere.Theme

BorderedButton {
    property color tint: Color.blue

    fillColor: tint
}
