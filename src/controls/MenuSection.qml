// The heading of a group of rows in a menu.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Label {
    leftPadding: 10
    topPadding: 6
    bottomPadding: 4
    font: Theme.system(11, Font.DemiBold)
    color: Theme.secondaryLabel
    Accessible.role: Accessible.Heading
}
