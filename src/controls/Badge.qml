// A word in a colour, a symbol before it if there is one, on a faint ground of the same colour.
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
    property real fillOpacity: 0.15
    // By what it stands on, so that assistive programs are not told twice.
    property bool toldElsewhere: false
    readonly property real inset: horizontalPadding + (symbol.length > 0 ? icon.implicitWidth + 4 : 0)

    // Whole points, so that both its edges are sharp wherever it is aligned.
    implicitWidth: Math.ceil(inset + label.implicitWidth + horizontalPadding)
    implicitHeight: label.implicitHeight + 2 * verticalPadding
    radius: 4
    color: Color.faded(tint, fillOpacity)

    SymbolIcon {
        id: icon

        x: badge.horizontalPadding
        anchors.verticalCenter: parent.verticalCenter
        visible: badge.symbol.length > 0
        name: badge.symbol
        size: 9
        bold: true
        color: badge.tint
    }

    Label {
        id: label

        anchors.fill: parent
        anchors.leftMargin: badge.inset
        anchors.rightMargin: badge.horizontalPadding
        text: badge.text
        font: Theme.system(10, Font.Bold)
        color: badge.tint
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: badge.toldElsewhere
    }
}
