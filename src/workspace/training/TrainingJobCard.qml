// One fine-tuning job: its name and status, and while it runs its progress, four figures and a button that stops it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    required property string identifier
    required property string name
    required property string badge
    required property color statusColor
    required property bool isRunning
    required property string progressText
    required property real progress

    readonly property bool isHovered: hovered

    signal cancel
    signal viewDetails

    // Whole, so that the rows below stand on whole points.
    implicitHeight: Math.ceil(content.implicitHeight)
    strokeColor: isHovered ? Color.faded(statusColor, 0.5) : Theme.border
    Accessible.role: Accessible.ListItem
    Accessible.name: name

    Column {
        id: content

        width: card.width

        Item {
            width: parent.width
            height: 40 + Math.max(title.implicitHeight, trailing.implicitHeight)

            Rectangle {
                id: dot

                x: 20
                anchors.verticalCenter: parent.verticalCenter
                width: 10
                height: 10
                radius: 5
                color: card.statusColor
            }

            Column {
                id: title

                anchors.left: dot.right
                anchors.leftMargin: 16
                anchors.right: trailing.left
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                spacing: 4

                Label {
                    width: parent.width
                    text: card.name
                    font: Theme.bodyMediumFont
                    color: "white"
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                }

                Label {
                    width: parent.width
                    text: qsTr("ID: ") + card.identifier
                    font: Theme.monoFont
                    color: Theme.textTertiary
                    elide: Text.ElideRight
                }
            }

            Row {
                id: trailing

                anchors.right: parent.right
                anchors.rightMargin: 20
                anchors.verticalCenter: parent.verticalCenter
                spacing: 16

                Badge {
                    anchors.verticalCenter: parent.verticalCenter
                    text: card.badge
                    tint: card.statusColor
                    font: Theme.system(11, Font.Bold)
                    horizontalPadding: 10
                    verticalPadding: 5
                }

                Column {
                    visible: card.isRunning
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 4

                    Label {
                        anchors.right: parent.right
                        text: card.progressText
                        font: Theme.monoFont
                        color: "white"
                    }

                    ProgressBar {
                        width: 80
                        value: card.progress
                        tint: Theme.success
                    }
                }

                // What is drawn of the buttons counts, and not the room around it that takes a press as well.
                Row {
                    anchors.verticalCenter: parent.verticalCenter
                    leftPadding: -details.padding
                    rightPadding: -details.padding
                    spacing: 8 - 2 * details.padding

                    IconButton {
                        visible: card.isRunning
                        symbol: "stop.circle"
                        color: Theme.error
                        label: qsTr("Cancel %1").arg(card.name)
                        onClicked: card.cancel()
                    }

                    IconButton {
                        id: details

                        symbol: "arrow.right.circle"
                        color: Theme.textSecondary
                        label: qsTr("Details of %1").arg(card.name)
                        onClicked: card.viewDetails()
                    }
                }
            }
        }

        Divider {
            visible: card.isRunning
            x: 1
            width: parent.width - 2
        }

        Item {
            visible: card.isRunning
            width: parent.width
            height: metrics.implicitHeight + 24
            // Cuts off all of the rounded shade but its lower corners.
            clip: true

            Rectangle {
                x: 1
                y: -card.radius
                width: parent.width - 2
                height: parent.height + card.radius - 1
                radius: card.radius - 1
                color: Color.faded("black", 0.3)
            }

            Row {
                id: metrics

                x: 20
                y: 12
                spacing: 24

                JobMetricItem {
                    label: qsTr("Epoch")
                    value: "2/5"
                }

                JobMetricItem {
                    label: qsTr("Loss")
                    value: "0.342"
                }

                JobMetricItem {
                    label: qsTr("Learning Rate")
                    value: "1e-4"
                }

                JobMetricItem {
                    label: qsTr("ETA")
                    value: qsTr("~45 min")
                }
            }
        }
    }
}
