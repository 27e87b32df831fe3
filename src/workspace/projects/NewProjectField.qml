// An input of the sheet, in a box under its name.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: field

    required property string label
    default property alias input: holder.data

    implicitHeight: column.implicitHeight

    Column {
        id: column

        width: field.width
        spacing: 8

        Label {
            text: field.label
            font: Theme.bodyMediumFont
            color: Theme.textSecondary
            Accessible.ignored: true
        }

        Rectangle {
            width: column.width
            height: holder.height + 24
            radius: 8
            color: Theme.surface
            border.width: 1
            border.color: field.activeFocus ? Theme.focusRing : Theme.border

            MouseArea {
                anchors.fill: parent
                cursorShape: Qt.IBeamCursor
                onPressed: field.forceActiveFocus(Qt.MouseFocusReason)
            }

            Item {
                id: holder

                x: 12
                y: 12
                width: parent.width - 24
                height: childrenRect.height
            }
        }
    }
}
