// One row of a menu, with a symbol before its text or a mark before the choice that holds.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.MenuItem {
    id: item

    property string symbol

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 26
    leftPadding: 10
    rightPadding: 16
    spacing: 8
    font: Theme.system(13)
    hoverEnabled: true
    opacity: enabled ? 1 : 0.5
    Accessible.name: text
    Accessible.description: enabled ? "" : qsTr("Unavailable")
    Accessible.onPressAction: {
        if (item.enabled) {
            item.clicked();
        }
    }

    background: Rectangle {
        radius: 5
        color: item.highlighted ? Color.blue : "transparent"
    }

    contentItem: MenuRow {
        text: item.text
        font: item.font
        symbol: item.checkable ? item.checked ? "checkmark" : "" : item.symbol
        keepsSymbolPlace: item.checkable
        color: item.highlighted ? "white" : Theme.label
        spacing: item.spacing
    }
}
