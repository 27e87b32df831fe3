// What an alert says and asks, and the keys that answer it.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: item

    required property string title
    required property string text
    required property list<string> buttons

    signal answered(int index)

    implicitWidth: Math.max(372, row.implicitWidth)
    implicitHeight: column.implicitHeight
    focus: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title
    Accessible.description: text

    Column {
        id: column

        width: parent.width
        spacing: 8

        Label {
            width: parent.width
            text: item.title
            font: Theme.system(15, Font.DemiBold)
            color: "white"
            wrapMode: Text.Wrap
        }

        Label {
            width: parent.width
            text: item.text
            font: Theme.system(13)
            color: Theme.textSecondary
            wrapMode: Text.Wrap
            // What others wrote may be of any length.
            maximumLineCount: 16
            elide: Text.ElideRight
        }

        Item {
            width: parent.width
            height: row.implicitHeight + 16

            Row {
                id: row

                anchors.right: parent.right
                anchors.bottom: parent.bottom
                // The first button stands last, where the eye ends.
                layoutDirection: Qt.RightToLeft
                spacing: 8

                Repeater {
                    model: item.buttons

                    ButtonBase {
                        required property int index
                        required property string modelData

                        text: modelData
                        horizontalPadding: 16
                        verticalPadding: 8
                        labelColor: "white"
                        fillColor: index === 0 ? Color.blue : Theme.bordered
                        onClicked: item.answered(index)
                    }
                }
            }
        }
    }

    // A key that is held down from before does not answer.
    Shortcut {
        enabled: item.visible
        autoRepeat: false
        sequences: ["Return", "Enter"]
        onActivated: item.answered(0)
    }

    Shortcut {
        enabled: item.visible && item.buttons.length > 1
        autoRepeat: false
        sequence: "Escape"
        onActivated: item.answered(1)
    }
}
