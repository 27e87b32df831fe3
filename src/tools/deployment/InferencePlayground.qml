// Tries the model out: a prompt, two settings that stand still, and the answer.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Rectangle {
    id: playground

    required property DeploymentState deployment

    color: Color.hex("161616")

    Divider {
        vertical: true
        height: playground.height
        color: Color.hex("333333")
    }

    Column {
        x: 20
        y: 20
        width: playground.width - 40
        spacing: 20

        Row {
            spacing: 8

            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                name: "play.fill"
                size: 12
                bold: true
                color: Color.gray
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("INFERENCE PLAYGROUND")
                font: Theme.system(12, Font.Black)
                color: Color.gray
                Accessible.role: Accessible.Heading
            }
        }

        // On constants, and so standing still whatever is done to them.
        Column {
            width: parent.width
            spacing: 16

            LabeledSlider {
                width: parent.width
                title: qsTr("Temperature")
                value: 0.7
                from: 0
                to: 1
                format: "%.1f"
            }

            LabeledSlider {
                width: parent.width
                title: qsTr("Max Tokens")
                value: 512
                from: 64
                to: 2048
                format: "%.0f"
            }
        }

        Divider {
            width: parent.width
            color: Color.hex("333333")
        }

        PlaygroundBox {
            width: parent.width
            title: qsTr("PROMPT")
            boxHeight: 80
            isFocused: prompt.field.activeFocus

            GrowingField {
                id: prompt

                anchors.fill: parent
                anchors.margins: 8
                label: qsTr("Prompt")
                text: playground.deployment.prompt
                font: Theme.system(13)
                color: "white"
                onTextEdited: {
                    if (text !== playground.deployment.prompt) {
                        playground.deployment.prompt = text;
                    }
                }
            }
        }

        PlaygroundBox {
            width: parent.width
            title: qsTr("OUTPUT")
            boxHeight: 150

            ScrollArea {
                anchors.fill: parent
                anchors.margins: 1
                contentHeight: answer.height + 14
                Accessible.name: qsTr("Output")

                Label {
                    id: answer

                    readonly property bool isWaiting: playground.deployment.output.length === 0

                    x: 7
                    y: 7
                    width: parent.width - 14
                    text: isWaiting ? qsTr("Waiting for generation...") : playground.deployment.output
                    font: Theme.system(13)
                    color: isWaiting ? Color.gray : "white"
                    wrapMode: Text.Wrap
                }
            }
        }

        ButtonBase {
            width: parent.width
            enabled: !playground.deployment.isGenerating
            busy: playground.deployment.isGenerating
            busyText: qsTr("GENERATING...")
            text: qsTr("RUN INFERENCE")
            font: Theme.system(11, Font.Bold)
            labelColor: "black"
            fillColor: Color.cyan
            padding: 12
            radius: 4
            onClicked: playground.deployment.run()
        }
    }
}
