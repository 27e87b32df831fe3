// A line between two groups of rows in a menu.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.MenuSeparator {
    id: separator

    implicitWidth: 100
    implicitHeight: 11
    leftPadding: 10
    rightPadding: 10
    topPadding: 5
    bottomPadding: 5

    contentItem: Divider {
        color: Theme.outline
    }
}
