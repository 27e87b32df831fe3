// A word in a colour, on a faint ground of the same colour.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: badge

    required property string text
    required property color tint
    property alias font: label.font
    property real horizontalPadding: 8
    property real verticalPadding: 4
    property real fillOpacity: 0.15

    implicitWidth: label.implicitWidth + 2 * horizontalPadding
    implicitHeight: label.implicitHeight + 2 * verticalPadding
    radius: 4
    color: Color.faded(tint, fillOpacity)

    Label {
        id: label

        anchors.fill: parent
        anchors.leftMargin: badge.horizontalPadding
        anchors.rightMargin: badge.horizontalPadding
        text: badge.text
        font: Theme.system(10, Font.Bold)
        color: badge.tint
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
}
