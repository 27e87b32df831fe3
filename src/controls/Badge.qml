// A short word in a colour, on the same colour at low opacity.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: badge

    required property string text
    required property color tint
    property string symbol
    property alias font: label.font
    property real horizontalPadding: 8
    property real verticalPadding: 4

    implicitWidth: row.implicitWidth + 2 * horizontalPadding
    implicitHeight: row.implicitHeight + 2 * verticalPadding
    radius: 4
    color: Color.faded(tint, 0.15)

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 4

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            visible: badge.symbol.length > 0
            name: badge.symbol
            size: 9
            color: badge.tint
        }

        Label {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            text: badge.text
            font: Theme.system(10, Font.Bold)
            color: badge.tint
        }
    }
}
