// The third step: what the model is trained for. The settings below the goals are the same for every goal and model.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

WizardStep {
    id: step

    required property int trainingGoal
    required property int selectedModel

    signal goalSelected(int goal)

    title: qsTr("Configure Training")

    ChoiceGrid {
        id: goals

        width: step.width
        name: step.title

        Repeater {
            model: [FineTuningVocabulary.General, FineTuningVocabulary.Chatbot, FineTuningVocabulary.Classification, FineTuningVocabulary.CodeGeneration]

            TrainingGoalCard {
                required property int modelData

                width: goals.cardWidth
                goal: modelData
                isSelected: step.trainingGoal === modelData
                onClicked: step.goalSelected(modelData)
            }
        }
    }

    Card {
        width: step.width
        height: settings.height
        color: Color.faded("white", 0.03)
        strokeColor: Color.faded("white", 0.1)
        Accessible.role: Accessible.Grouping
        Accessible.name: heading.text

        Column {
            id: settings

            width: parent.width

            Label {
                id: heading

                leftPadding: 16
                topPadding: 16
                bottomPadding: 4
                text: qsTr("Auto-Optimized Settings")
                font: Theme.rounded(14, Font.DemiBold)
                color: "white"
            }

            SettingRow {
                width: parent.width
                label: qsTr("Learning Rate")
                value: "2e-5"
            }

            Divider {
                width: parent.width
                color: Color.faded("white", 0.1)
            }

            SettingRow {
                width: parent.width
                label: qsTr("Batch Size")
                value: "8"
            }

            Divider {
                width: parent.width
                color: Color.faded("white", 0.1)
            }

            SettingRow {
                width: parent.width
                label: qsTr("Epochs")
                value: "3"
            }

            Divider {
                width: parent.width
                color: Color.faded("white", 0.1)
            }

            SettingRow {
                width: parent.width
                label: qsTr("LoRA Rank")
                value: "16"
            }
        }
    }
}
