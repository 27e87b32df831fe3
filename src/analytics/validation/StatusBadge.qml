// A verdict on the run, in a colour.
import Quillmere.Controls

Badge {
    horizontalPadding: 6
    verticalPadding: 6
}
