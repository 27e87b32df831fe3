// The controls beside a run. Of all of them only the learning rate reaches the simulation, and the two buttons do nothing: there is
// no run behind them.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: panel

    required property TrainingTelemetryState telemetry

    implicitWidth: 280
    color: AnalyticsPalette.panel

    ScrollArea {
        id: area

        anchors.fill: parent
        contentHeight: page.height
        Accessible.name: qsTr("Live controls")

        Column {
            id: page

            readonly property real innerWidth: width - 2 * padding

            width: area.width
            padding: 20
            spacing: 24

            Row {
                spacing: 6

                SymbolIcon {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "slider.vertical.3"
                    size: 12
                    bold: true
                    color: Color.gray
                }

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("LIVE CONTROLS")
                    font: Theme.monospaced(12, Font.Black)
                    color: Color.gray
                    Accessible.role: Accessible.Heading
                }
            }

            Column {
                width: page.innerWidth
                spacing: 12

                SliderGroup {
                    width: parent.width
                    label: qsTr("Learning Rate")
                    value: panel.telemetry.learningRate
                    from: 0.00001
                    to: 0.001
                    format: "%.5f"
                    onMoved: value => panel.telemetry.learningRate = value
                }

                ControlGroup {
                    width: parent.width
                    label: qsTr("Batch Size")

                    Label {
                        anchors.verticalCenter: stepper.verticalCenter
                        text: Format.whole("%lld", panel.telemetry.batchSize)
                        font: Theme.monospaced(11)
                        color: Color.cyan
                    }

                    Stepper {
                        id: stepper

                        anchors.right: parent.right
                        label: qsTr("Batch Size")
                        value: panel.telemetry.batchSize
                        stepSize: 4
                        onStepped: direction => panel.telemetry.stepBatchSize(direction)
                    }
                }

                SliderGroup {
                    width: parent.width
                    label: qsTr("Dropout Rate")
                    value: panel.telemetry.dropout
                    from: 0
                    to: 0.5
                    format: "%.2f"
                    onMoved: value => panel.telemetry.dropout = value
                }

                SliderGroup {
                    width: parent.width
                    label: qsTr("Gradient Clipping")
                    value: panel.telemetry.gradientClipping
                    from: 0.1
                    to: 5
                    format: "%.1f"
                    onMoved: value => panel.telemetry.gradientClipping = value
                }
            }

            Divider {
                width: page.innerWidth
                color: AnalyticsPalette.cardStroke
            }

            Switch {
                width: page.innerWidth
                text: qsTr("Early Stopping")
                font: Theme.captionFont
                checked: panel.telemetry.earlyStopping
                onToggled: panel.telemetry.earlyStopping = !panel.telemetry.earlyStopping
            }

            Switch {
                width: page.innerWidth
                text: qsTr("Fast Eval Mode")
                font: Theme.captionFont
                checked: panel.telemetry.fastEval
                onToggled: panel.telemetry.fastEval = !panel.telemetry.fastEval
            }

            ButtonBase {
                width: page.innerWidth
                symbol: "pause.fill"
                text: qsTr("PAUSE TRAINING")
                font: Theme.system(11, Font.Bold)
                labelColor: "black"
                fillColor: Color.yellow
                hoverTint: "transparent"
                padding: 10
                radius: 4
            }

            ButtonBase {
                width: page.innerWidth
                symbol: "stop.fill"
                text: qsTr("STOP TRAINING")
                font: Theme.system(11, Font.Bold)
                labelColor: "white"
                fillColor: Color.red
                hoverTint: "transparent"
                padding: 10
                radius: 4
            }
        }
    }

    Divider {
        vertical: true
        height: panel.height
        color: AnalyticsPalette.cardStroke
    }
}
