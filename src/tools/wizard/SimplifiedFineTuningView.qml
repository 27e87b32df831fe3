// The fine-tune wizard: four steps to a custom model. It has no way to close its host, and starts nothing.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Rectangle {
    id: view

    readonly property color lineColor: Color.faded("white", 0.1)

    // A button that goes hands the keyboard to the step that came, from which Tab goes on.
    function keepKeyboard(button) {
        if (!button.visible && Keyboard.leave(button)) {
            body.forceActiveFocus(Qt.OtherFocusReason);
        }
    }

    color: "black"
    implicitWidth: 900
    implicitHeight: 700

    SimplifiedFineTuningState {
        id: wizard

        onCurrentStepChanged: {
            body.contentY = 0;
            arrival.restart();
        }
    }

    Column {
        id: header

        width: view.width

        Column {
            width: parent.width
            padding: 32
            bottomPadding: 24
            spacing: 4

            Label {
                text: qsTr("Fine-Tune Wizard")
                font: Theme.rounded(24, Font.Bold)
                color: "white"
                Accessible.role: Accessible.Heading
            }

            Label {
                text: qsTr("Create your custom model in 4 simple steps")
                font: Theme.rounded(14)
                color: Color.gray
            }
        }

        StepIndicator {
            x: 32
            width: parent.width - 64
            bottomPadding: 24
            steps: wizard.steps
            currentStep: wizard.currentStep
        }

        Divider {
            width: parent.width
            color: view.lineColor
        }
    }

    ScrollArea {
        id: body

        anchors.top: header.bottom
        anchors.bottom: footer.top
        width: view.width
        contentHeight: step.height + 64
        Accessible.name: wizard.steps[wizard.currentStep]

        // One of them shows.
        Column {
            id: step

            x: 32
            y: 32
            width: body.width - 64

            DataSelectionStep {
                width: step.width
                visible: wizard.currentStep === 0
                selectedDataset: wizard.selectedDataset
                datasetURL: wizard.datasetURL
                onDatasetSelected: option => wizard.selectedDataset = option
            }

            ModelSelectionStep {
                width: step.width
                visible: wizard.currentStep === 1
                selectedModel: wizard.selectedModel
                onModelSelected: model => wizard.selectedModel = model
            }

            ConfigurationStep {
                width: step.width
                visible: wizard.currentStep === 2
                trainingGoal: wizard.trainingGoal
                selectedModel: wizard.selectedModel
                onGoalSelected: goal => wizard.trainingGoal = goal
            }

            ReviewStep {
                width: step.width
                visible: wizard.currentStep === 3
                dataset: wizard.selectedDataset
                model: wizard.selectedModel
                goal: wizard.trainingGoal
                isProcessing: wizard.isProcessing
                onStart: wizard.start()
            }
        }

        NumberAnimation {
            id: arrival

            target: step
            property: "opacity"
            from: 0
            to: 1
            duration: Motion.standard
            easing.type: Easing.InOutQuad
        }
    }

    Item {
        id: footer

        anchors.bottom: view.bottom
        width: view.width
        height: 88

        Divider {
            width: parent.width
            color: view.lineColor
        }

        ButtonBase {
            x: 24
            y: 24
            width: 100
            height: 40
            visible: wizard.currentStep >= 1
            onVisibleChanged: view.keepKeyboard(this)
            text: qsTr("Back")
            font: Theme.rounded(14, Font.Medium)
            labelColor: "white"
            fillColor: Color.faded("white", 0.1)
            radius: 10
            onClicked: wizard.back()
        }

        ContinueButton {
            anchors.right: parent.right
            anchors.rightMargin: 24
            y: 24
            visible: wizard.currentStep < wizard.steps.length - 1
            enabled: wizard.canProceed
            onVisibleChanged: view.keepKeyboard(this)
            onClicked: wizard.proceed()
        }
    }

    // Stands beside the steps, not in the last one: who goes back during the pause is told on whatever step the pause ends.
    Sheet {
        visible: wizard.showSuccess
        title: qsTr("Training Started!")
        fillColor: "black"
        onClosed: wizard.showSuccess = false

        content: SuccessView {
            onDone: wizard.showSuccess = false
        }
    }
}
