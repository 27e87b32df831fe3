// What run the monitoring page is about. Its buttons do nothing.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    implicitHeight: content.height + 48

    Column {
        id: content

        x: 24
        y: 24
        width: card.width - 48
        spacing: 20

        Item {
            width: content.width
            height: Math.max(heading.height, buttons.height)

            Column {
                id: heading

                anchors.left: parent.left
                anchors.right: buttons.left
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                spacing: 4

                Label {
                    width: parent.width
                    text: qsTr("Medical LLaMA Fine-Tuning")
                    font: Theme.headingFont
                    color: "white"
                    elide: Text.ElideRight
                    Accessible.role: Accessible.Heading
                }

                Label {
                    width: parent.width
                    text: qsTr("Run ID: #ft-29384 • Started 2h 15m ago")
                    font: Theme.captionFont
                    color: Theme.textTertiary
                    elide: Text.ElideRight
                }
            }

            Row {
                id: buttons

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: 12

                SecondaryButton {
                    text: qsTr("View Logs")
                }

                PrimaryButton {
                    text: qsTr("Stop Run")
                }
            }
        }

        FlexibleGrid {
            width: content.width
            columns: 4
            spacing: 16

            InfoGridItem {
                label: qsTr("Base Model")
                value: "Llama-3-8b"
                icon: "cube.fill"
            }

            InfoGridItem {
                label: qsTr("Dataset")
                value: "PubMed-QA"
                icon: "cylinder.split.1x2.fill"
            }

            InfoGridItem {
                label: qsTr("Method")
                value: "QLoRA r=64, alpha=16"
                icon: "cpu.fill"
            }

            InfoGridItem {
                label: qsTr("Status")
                value: qsTr("Training")
                icon: "circle.fill"
                iconColor: "white"
            }
        }
    }
}
