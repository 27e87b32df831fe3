// PrimaryButtonStyle: the one thing to do on a screen.
import Quillmere.Controls

ButtonBase {
    labelColor: "black"
    fillColor: "white"
    pressedOpacity: 0.9
}
