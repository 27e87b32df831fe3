// The toolkit's bordered button.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    font: Theme.system(13)
    fillColor: Theme.bordered
    horizontalPadding: 12
    verticalPadding: 5
}
