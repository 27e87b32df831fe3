// The training tab: metrics and curves of a simulated run, and live controls. Full mode adds two metrics, the learning rate's curve
// and the system monitor; the run goes on either way.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Analytics
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: view

    property bool isFullTelemetry: false

    TrainingTelemetryState {
        id: telemetry
    }

    ScrollArea {
        id: area

        anchors.left: parent.left
        anchors.right: controls.left
        height: view.height
        contentHeight: page.height
        Accessible.name: qsTr("Training telemetry")

        Column {
            id: page

            readonly property real innerWidth: width - 2 * padding

            width: area.width
            padding: 24
            spacing: 20

            FlexibleGrid {
                width: page.innerWidth
                minimumColumnWidth: 140
                spacing: 12

                MetricCard {
                    title: qsTr("TRAIN LOSS")
                    value: Format.real("%.3f", AnalyticsDataManager.trainingLoss)
                    trend: "-0.02"
                    valueColor: Color.green
                }

                MetricCard {
                    title: qsTr("VAL LOSS")
                    value: Format.real("%.3f", AnalyticsDataManager.validationLoss)
                    trend: "+0.01"
                    valueColor: Color.yellow
                }

                MetricCard {
                    title: qsTr("ACCURACY")
                    value: Format.real("%.1f%%", AnalyticsDataManager.accuracy * 100)
                    trend: "+1.2%"
                    valueColor: Color.cyan
                }

                MetricCard {
                    title: qsTr("TOKENS/SEC")
                    value: Format.real("%.0f", AnalyticsDataManager.tokensPerSec)
                    trend: qsTr("Stable")
                }

                MetricCard {
                    visible: view.isFullTelemetry
                    title: qsTr("GRAD NORM")
                    value: Format.real("%.1f", AnalyticsDataManager.gradNorm)
                    trend: qsTr("High")
                    valueColor: Color.purple
                }

                MetricCard {
                    visible: view.isFullTelemetry
                    title: qsTr("LR STABILITY")
                    value: Format.real("%.0f%%", AnalyticsDataManager.lrStability * 100)
                    trend: qsTr("Stable")
                    valueColor: Color.blue
                }
            }

            Row {
                id: charts

                readonly property real chartWidth: view.isFullTelemetry ? Math.floor((width - spacing) / 2) : width

                width: page.innerWidth
                height: 250
                spacing: 16

                TelemetryChart {
                    width: charts.chartWidth
                    height: charts.height
                    title: qsTr("LOSS CURVES")

                    LineSeries {
                        name: qsTr("Train Loss")
                        color: Color.green
                        points: telemetry.lossPoints
                    }

                    LineSeries {
                        name: qsTr("Val Loss")
                        color: Color.yellow
                        points: telemetry.valLossPoints
                    }
                }

                TelemetryChart {
                    visible: view.isFullTelemetry
                    width: charts.chartWidth
                    height: charts.height
                    title: qsTr("LEARNING RATE")

                    LineSeries {
                        name: qsTr("Learning Rate")
                        color: Color.purple
                        points: telemetry.learningRatePoints
                    }
                }
            }

            // Made anew each time that full mode comes on, and with it the device that it shows.
            Repeater {
                model: view.isFullTelemetry ? 1 : 0

                SystemPerformanceMonitor {
                    width: page.innerWidth
                    height: 160
                }
            }
        }
    }

    LiveControls {
        id: controls

        anchors.right: parent.right
        height: view.height
        telemetry: telemetry
    }
}
