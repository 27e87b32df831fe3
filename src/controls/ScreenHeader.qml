// The head of a destination: what it is, and at its end what can be done there.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: header

    required property string title
    required property string subtitle
    default property alias actions: actions.data

    implicitHeight: Math.max(words.implicitHeight, actions.implicitHeight) + 40

    Column {
        id: words

        anchors.left: parent.left
        anchors.leftMargin: 24
        anchors.right: actions.left
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        Label {
            width: parent.width
            text: header.title
            font: Theme.titleFont
            color: "white"
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }

        Label {
            width: parent.width
            text: header.subtitle
            font: Theme.bodyFont
            color: Theme.textSecondary
            elide: Text.ElideRight
        }
    }

    Row {
        id: actions

        anchors.right: parent.right
        anchors.rightMargin: 24
        anchors.verticalCenter: parent.verticalCenter
        spacing: 16
    }
}
