// A search field with its magnifying glass. Escape empties it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: box

    property real padding: 10
    property alias text: field.text
    property alias placeholder: field.placeholderText
    property alias label: field.label

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

        anchors.left: glass.right
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: box.padding
        anchors.verticalCenter: parent.verticalCenter
        Accessible.searchEdit: true
        Keys.onEscapePressed: event => {
            event.accepted = text.length > 0;
            clear();
        }
    }
}
