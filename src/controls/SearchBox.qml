// What is looked for. Escape empties it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: box

    property alias text: field.text
    property alias placeholderText: field.placeholderText
    property alias font: field.font
    property real padding: 10
    readonly property alias field: field

    implicitWidth: 300
    implicitHeight: field.implicitHeight + 2 * padding
    radius: 8
    color: Theme.surface
    border.width: 1
    border.color: field.activeFocus ? Theme.focusRing : Theme.border

    SymbolIcon {
        id: glass

        x: box.padding
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifyingglass"
        size: 14
        color: Theme.textTertiary
    }

    PlainField {
        id: field

        anchors.fill: parent
        anchors.leftMargin: glass.x + glass.width + 12
        anchors.rightMargin: box.padding
        label: placeholderText
        color: "white"
        Accessible.searchEdit: true
        Keys.onEscapePressed: event => {
            event.accepted = text.length > 0;
            clear();
        }
    }
}
