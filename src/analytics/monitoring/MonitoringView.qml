// The page of one fine-tuning run: the Dashboard destination, and a tab of the analytics dashboard. All of it is sample text but the
// two losses and the bars.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: view

    color: Theme.background

    MonitoringState {
        id: run
    }

    BreadcrumbBar {
        id: breadcrumb

        width: view.width
    }

    ScrollArea {
        id: body

        anchors.top: breadcrumb.bottom
        anchors.bottom: view.bottom
        width: view.width
        contentHeight: content.height + 48
        Accessible.name: qsTr("Monitoring")

        Column {
            id: content

            x: 24
            y: 24
            width: body.width - 48
            spacing: 24

            RunInfoCard {
                width: content.width
            }

            FlexibleGrid {
                id: metrics

                width: content.width
                height: 120
                columns: 3
                spacing: 16

                MetricCardNew {
                    height: metrics.height
                    title: qsTr("TRAINING LOSS")
                    value: Format.real("%.3f", AnalyticsDataManager.trainingLoss)
                    change: "-12%"
                    changeLabel: qsTr("Epoch 2/5")
                    isPositiveChange: true
                }

                MetricCardNew {
                    height: metrics.height
                    title: qsTr("VALIDATION LOSS")
                    value: Format.real("%.3f", AnalyticsDataManager.validationLoss)
                    change: "-5%"
                    changeLabel: qsTr("Best: 0.310")
                    isPositiveChange: true
                }

                MetricCardNew {
                    height: metrics.height
                    title: qsTr("THROUGHPUT")
                    value: "4.2k"
                    change: "+8%"
                    changeLabel: qsTr("tokens/sec")
                    isPositiveChange: true
                }
            }

            Row {
                id: charts

                width: content.width
                height: 320
                spacing: 16

                LossCurveCard {
                    width: charts.width - hardware.width - charts.spacing
                    height: charts.height
                    bars: run.lossBars
                }

                HardwareStatsCard {
                    id: hardware

                    width: 280
                    height: charts.height
                }
            }
        }
    }
}
