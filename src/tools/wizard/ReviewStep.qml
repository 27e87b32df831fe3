// The last step: the three choices once more, and the button that starts.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

WizardStep {
    id: step

    required property int dataset
    required property int model
    required property int goal
    required property bool isProcessing

    signal start

    title: qsTr("Review & Start")

    Column {
        width: step.width
        spacing: 16

        ReviewCard {
            width: parent.width
            icon: "doc.text.fill"
            title: qsTr("Dataset")
            value: FineTuningCards.datasetTitle(step.dataset)
            tint: Color.blue
        }

        ReviewCard {
            width: parent.width
            icon: "cpu.fill"
            title: qsTr("Model")
            value: FineTuningCards.modelName(step.model)
            tint: Color.purple
        }

        ReviewCard {
            width: parent.width
            icon: "target"
            title: qsTr("Goal")
            value: FineTuningCards.goalTitle(step.goal)
            tint: Color.green
        }
    }

    ButtonBase {
        width: step.width
        enabled: !step.isProcessing
        busy: step.isProcessing
        busyText: qsTr("Starting...")
        symbol: "bolt.fill"
        text: qsTr("Start Fine-Tuning")
        font: Theme.rounded(16, Font.DemiBold)
        labelColor: "white"
        fillColor: Color.blue
        verticalPadding: 16
        spacing: 12
        radius: 12
        onClicked: step.start()
    }
}
