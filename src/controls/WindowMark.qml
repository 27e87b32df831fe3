// One of the window's own marks.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    id: mark

    property bool closes: false

    implicitWidth: 28
    implicitHeight: 28
    padding: 0
    radius: 14
    fillColor: !hovered ? "transparent" : closes ? Theme.error : Theme.bordered
    focusPolicy: Qt.TabFocus

    contentItem: SymbolIcon {
        name: mark.symbol
        size: 11
        bold: true
        color: mark.hovered ? "white" : Theme.textSecondary
    }
}
