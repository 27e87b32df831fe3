// One version of the model registry. A press moves the highlight to it and does nothing else.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

PlainButton {
    id: row

    required property string version
    required property string acc
    required property string size
    required property string date
    required property int status
    required property bool isSelected
    // Of the lower corners: the last row of a table fills the table's own.
    property real cornerRadius: 0

    padding: 16
    accessibleName: version + ", " + badge.text + ", " + acc + ", " + size + ", " + date
    fillColor: isSelected ? Color.faded(Color.cyan, 0.1) : "transparent"
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isSelected
    Accessible.onToggleAction: press()

    background: Item {
        // Cuts off the upper corners, which are round too.
        clip: row.cornerRadius > 0

        Rectangle {
            y: -radius
            width: parent.width
            height: parent.height + radius
            radius: row.cornerRadius
            color: row.fillColor
        }
    }

    contentItem: Item {
        implicitHeight: Math.max(cells.implicitHeight, arrow.implicitHeight)

        Row {
            id: cells

            anchors.verticalCenter: parent.verticalCenter
            spacing: 8

            Label {
                anchors.verticalCenter: parent.verticalCenter
                width: 80
                text: row.version
                font: Theme.system(13, Font.Medium)
                color: "white"
                Accessible.ignored: true
            }

            Item {
                anchors.verticalCenter: parent.verticalCenter
                width: 80
                height: badge.height

                ModelStatusBadge {
                    id: badge

                    status: row.status
                    toldElsewhere: true
                }
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                width: 80
                text: row.acc
                font: Theme.system(13)
                color: Color.green
                Accessible.ignored: true
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                width: 80
                text: row.size
                font: Theme.system(13)
                color: Color.gray
                Accessible.ignored: true
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                width: 120
                text: row.date
                font: Theme.system(13)
                color: Color.gray
                Accessible.ignored: true
            }
        }

        SymbolIcon {
            id: arrow

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron.right"
            color: Color.gray
        }
    }
}
