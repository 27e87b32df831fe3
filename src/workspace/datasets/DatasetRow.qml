// One dataset in the table. The button that takes it off the list shows under the pointer and where the keyboard is.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

DatasetColumns {
    id: row

    required property string identifier
    required property string filename
    required property string icon
    required property string purpose
    required property color purposeColor
    required property string size
    required property string uploaded
    // Of the lower corners: the last row fills the table's own.
    property real cornerRadius: 0

    readonly property bool isHovered: pointer.hovered

    // The row's button was pressed; by the keyboard, which then needs another place to be.
    signal remove(bool byKeyboard)

    implicitHeight: Math.max(name.implicitHeight, badge.implicitHeight) + 28
    Accessible.role: Accessible.ListItem
    Accessible.name: filename

    HoverHandler {
        id: pointer

        parent: row
    }

    Item {
        parent: row
        z: -1
        x: 1
        width: row.width - 2
        height: row.height
        // Cuts off the upper corners, which are round too.
        clip: row.cornerRadius > 0

        Rectangle {
            y: -radius
            width: parent.width
            height: parent.height + radius
            radius: row.cornerRadius
            color: row.isHovered ? Color.faded("white", 0.02) : "transparent"
        }
    }

    Item {
        width: row.nameWidth
        height: row.height

        SymbolIcon {
            id: symbol

            anchors.verticalCenter: parent.verticalCenter
            width: 20
            name: row.icon
            color: Theme.accent
        }

        Label {
            id: name

            anchors.verticalCenter: parent.verticalCenter
            x: symbol.width + 12
            width: Math.min(implicitWidth, parent.width - x - 12)
            text: row.filename
            font: Theme.bodyFont
            color: "white"
            // The end of a name tells its format.
            elide: Text.ElideMiddle
        }
    }

    Item {
        width: row.purposeWidth
        height: row.height

        Badge {
            id: badge

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, parent.width)
            text: row.purpose
            tint: row.purposeColor
            font: Theme.system(11, Font.Medium)
        }
    }

    Label {
        anchors.verticalCenter: parent?.verticalCenter
        width: row.sizeWidth
        text: row.size
        font: Theme.monoFont
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
    }

    Label {
        anchors.verticalCenter: parent?.verticalCenter
        width: row.uploadedWidth
        text: row.uploaded
        font: Theme.captionFont
        color: Theme.textTertiary
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
    }

    Item {
        width: row.deleteWidth
        height: row.height

        IconButton {
            id: trash

            anchors.centerIn: parent
            symbol: "trash"
            size: 14
            color: Theme.textTertiary
            label: qsTr("Delete %1").arg(row.filename)
            // Assistive programs know it all the time.
            contentItem.opacity: row.isHovered || activeFocus ? 1 : 0
            onClicked: row.remove(visualFocus)
        }
    }
}
