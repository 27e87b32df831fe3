// The second step: the model to start from. The first one is recommended, whatever the data and the goal.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Tools

WizardStep {
    id: step

    required property int selectedModel

    signal modelSelected(int model)

    title: qsTr("Choose Base Model")

    ChoiceGrid {
        id: models

        width: step.width
        name: step.title

        Repeater {
            model: [FineTuningVocabulary.Gpt35Turbo, FineTuningVocabulary.Gpt4, FineTuningVocabulary.Claude3, FineTuningVocabulary.Llama2]

            ModelCard {
                required property int modelData

                width: models.cardWidth
                model: modelData
                isSelected: step.selectedModel === modelData
                isRecommended: modelData === FineTuningVocabulary.Gpt35Turbo
                onClicked: step.modelSelected(modelData)
            }
        }
    }
}
