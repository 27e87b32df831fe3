// One line of the table of shortcuts. The program knows none of them.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: row

    required property list<string> keys
    required property string action

    implicitHeight: Math.max(caps.height, label.height)
    Accessible.role: Accessible.Grouping
    Accessible.name: action

    Row {
        id: caps

        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        Repeater {
            model: row.keys

            KeyCap {
                required property string modelData

                text: modelData
            }
        }
    }

    Label {
        id: label

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: row.action
        font: Theme.captionFont
        color: Theme.textSecondary
        Accessible.ignored: true
    }
}
