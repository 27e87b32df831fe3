// A button without any chrome: a label, or whatever content it is given.
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    labelColor: hovered ? "white" : Theme.textSecondary
    horizontalPadding: 0
    verticalPadding: 0
}
