// A preference with its value. It looks as if it led somewhere, and leads nowhere.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: row

    required property string title
    required property string value

    implicitHeight: name.implicitHeight + 32

    Label {
        id: name

        x: 16
        anchors.verticalCenter: parent.verticalCenter
        text: row.title
        font: Theme.bodyFont
        color: "white"
    }

    Label {
        anchors.right: chevron.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: row.value
        font: Theme.bodyFont
        color: Theme.textTertiary
    }

    SymbolIcon {
        id: chevron

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        name: "chevron.right"
        size: 12
        color: Theme.textTertiary
    }
}
