// The top row of a workspace screen: its name, what it is for, and what can be done there.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: header

    required property string title
    required property string subtitle
    default property alias actions: actions.data

    implicitHeight: Math.max(texts.implicitHeight, actions.implicitHeight) + 40

    Column {
        id: texts

        x: 24
        anchors.verticalCenter: parent.verticalCenter
        width: actions.x - 24 - 16
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
