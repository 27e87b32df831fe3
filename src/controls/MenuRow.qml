// What stands in a row of a menu.
import QtQuick
import Quillmere.Controls

Item {
    id: row

    required property string text
    required property font font
    required property string symbol
    // Rows of one menu begin alike, whether they have their mark or not.
    required property bool keepsSymbolPlace
    required property color color
    required property real spacing

    readonly property real inset: symbol.length > 0 || keepsSymbolPlace ? 16 + spacing : 0

    implicitWidth: inset + label.implicitWidth
    implicitHeight: label.implicitHeight

    SymbolIcon {
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        visible: row.symbol.length > 0
        name: row.symbol
        size: 13
        color: row.color
    }

    Label {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        x: row.inset
        width: row.width - x
        text: row.text
        font: row.font
        color: row.color
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
