// A folder or a file in the file dialog: a click chooses it, a double click opens it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: row

    required property string identifier
    required property bool isFolder
    required property string size
    required property string changed
    required property bool isCurrent

    signal chosen
    signal opened

    implicitHeight: 30
    Accessible.role: Accessible.ListItem
    Accessible.name: identifier
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.onPressAction: opened()

    Rectangle {
        x: 4
        width: row.width - 8
        height: row.height
        radius: 4
        color: row.isCurrent ? Theme.accent : pointer.hovered ? Theme.hovered : "transparent"
    }

    HoverHandler {
        id: pointer
    }

    SymbolIcon {
        id: symbol

        x: 14
        anchors.verticalCenter: parent.verticalCenter
        width: 18
        name: row.isFolder ? "folder.fill" : "doc"
        size: 13
        color: row.isCurrent ? "white" : row.isFolder ? Theme.accent : Theme.textSecondary
    }

    Label {
        anchors.left: symbol.right
        anchors.leftMargin: 8
        anchors.right: size.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        text: row.identifier
        font: Theme.system(13)
        color: "white"
        elide: Text.ElideMiddle
        maximumLineCount: 1
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }

    Label {
        id: size

        anchors.right: changed.left
        anchors.verticalCenter: parent.verticalCenter
        width: 80
        text: row.size
        font: Theme.system(12)
        color: row.isCurrent ? "white" : Theme.textTertiary
        horizontalAlignment: Text.AlignRight
    }

    Label {
        id: changed

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        width: 150
        text: row.changed
        font: Theme.system(12)
        color: row.isCurrent ? "white" : Theme.textTertiary
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
    }

    MouseArea {
        anchors.fill: parent
        onPressed: row.chosen()
        onDoubleClicked: row.opened()
    }
}
