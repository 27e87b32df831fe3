// SecondaryButtonStyle: what else there is to do.
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    fillColor: Theme.border
    pressedOpacity: 0.8
}
