// The button that ends a step of the sign-in: full width, and a spinner while the service is asked.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    font: Theme.system(14, Font.DemiBold)
    labelColor: "white"
    fillColor: Color.faded(Color.blue, enabled ? 1 : 0.4)
    disabledOpacity: 1
    radius: 8
    verticalPadding: 12
    spinnerSize: 0.7 * 32
}
