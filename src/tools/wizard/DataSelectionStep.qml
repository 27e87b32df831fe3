// The first step: where the training data comes from. The zone for a file is a picture of one: nothing can be dropped on it, and
// its button opens nothing.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

WizardStep {
    id: step

    required property int selectedDataset
    required property string datasetURL
    property bool isDragging: false

    signal datasetSelected(int option)

    title: qsTr("Select Training Data")

    ChoiceGrid {
        id: sources

        width: step.width
        spacing: 16
        name: step.title

        Repeater {
            model: [FineTuningVocabulary.Upload, FineTuningVocabulary.Sample, FineTuningVocabulary.Url, FineTuningVocabulary.Database]

            DatasetOptionCard {
                required property int modelData

                width: sources.cardWidth
                title: FineTuningCards.datasetTitle(modelData)
                description: FineTuningCards.datasetDescription(modelData)
                icon: FineTuningCards.datasetIcon(modelData)
                color: FineTuningCards.datasetColor(modelData)
                isSelected: step.selectedDataset === modelData
                onClicked: step.datasetSelected(modelData)
            }
        }
    }

    DashedFrame {
        width: step.width
        height: 240
        visible: step.selectedDataset === FineTuningVocabulary.Upload
        color: Color.faded("white", 0.03)
        strokeColor: step.isDragging ? Color.blue : Color.faded("white", 0.1)
        strokeWidth: 2
        dash: 10
        radius: 16

        Column {
            anchors.centerIn: parent
            width: parent.width - 80
            spacing: 16

            SymbolIcon {
                anchors.horizontalCenter: parent.horizontalCenter
                name: "icloud.and.arrow.up"
                size: 40
                color: Color.blue
            }

            Column {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 4

                Label {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: qsTr("Drag & Drop file here")
                    font: Theme.rounded(16, Font.Medium)
                    color: "white"
                }

                Label {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: qsTr("Supports CSV, JSONL, TXT (Max 100MB)")
                    font: Theme.rounded(12)
                    color: Color.gray
                }
            }

            ButtonBase {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("Browse Files")
                font: Theme.rounded(13, Font.Medium)
                labelColor: "white"
                fillColor: Color.faded("white", 0.1)
                horizontalPadding: 16
                verticalPadding: 8
                radius: 8
            }
        }
    }
}
