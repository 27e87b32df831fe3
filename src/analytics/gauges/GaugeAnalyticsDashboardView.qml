// The gauges of the telemetry tab: what hardware and training are at, in four sections. All of it is simulated.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

ScrollArea {
    id: view

    contentHeight: page.height
    Accessible.name: qsTr("Gauges")

    GaugeAnalyticsDashboardState {
        id: telemetry
    }

    Column {
        id: page

        readonly property real innerWidth: width - 2 * padding

        width: view.width
        padding: 32
        spacing: 32

        Item {
            width: page.innerWidth
            height: title.height

            Column {
                id: title

                anchors.left: parent.left
                anchors.right: performance.left
                anchors.rightMargin: 16
                spacing: 4

                Label {
                    width: parent.width
                    text: qsTr("SYSTEM TELEMETRY")
                    font: Theme.system(24, Font.Bold)
                    color: "white"
                    elide: Text.ElideRight
                    Accessible.role: Accessible.Heading
                }

                Label {
                    width: parent.width
                    text: qsTr("Real-time hardware & training monitoring")
                    font: Theme.system(14)
                    color: Color.gray
                    elide: Text.ElideRight
                }
            }

            Switch {
                id: performance

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Performance Mode")
                tint: Color.cyan
                checked: telemetry.isPerformanceMode
                onToggled: telemetry.isPerformanceMode = !telemetry.isPerformanceMode
            }
        }

        GaugeSection {
            width: page.innerWidth
            title: qsTr("GPU HEALTH")
            icon: "cpu"

            GaugeMeterView {
                metricName: qsTr("GPU Temp")
                value: telemetry.gpuTemp
                unit: "°C"
                thresholds: telemetry.thresholds(60, 80, 90)
                icon: "flame.fill"
                maxValue: 100
            }

            GaugeMeterView {
                metricName: qsTr("VRAM Usage")
                value: telemetry.vramUsage
                unit: qsTr("GB")
                thresholds: telemetry.thresholds(12, 20, 22)
                icon: "memorychip"
                maxValue: 24
            }

            GaugeMeterView {
                metricName: qsTr("GPU Load")
                value: telemetry.gpuLoad
                unit: "%"
                thresholds: telemetry.thresholds(50, 80, 95)
                icon: "bolt.fill"
                maxValue: 100
            }

            GaugeMeterView {
                metricName: qsTr("Fan Speed")
                value: telemetry.fanSpeed
                unit: qsTr("RPM")
                thresholds: telemetry.thresholds(2000, 3000, 4000)
                icon: "fanblades.fill"
                maxValue: 5000
            }
        }

        GaugeSection {
            width: page.innerWidth
            title: qsTr("SYSTEM LOAD")
            icon: "server.rack"

            GaugeMeterView {
                metricName: qsTr("CPU Util")
                value: telemetry.cpuUtil
                unit: "%"
                thresholds: telemetry.thresholds(40, 70, 90)
                icon: "cpu.fill"
                maxValue: 100
            }

            GaugeMeterView {
                metricName: qsTr("Memory")
                value: telemetry.memoryUsage
                unit: qsTr("GB")
                thresholds: telemetry.thresholds(16, 24, 30)
                icon: "memorychip.fill"
                maxValue: 32
            }

            GaugeMeterView {
                metricName: qsTr("Disk I/O")
                value: telemetry.diskSpeed
                unit: qsTr("MB/s")
                thresholds: telemetry.thresholds(500, 1000, 2000)
                icon: "internaldrive.fill"
                maxValue: 3000
            }

            GaugeMeterView {
                metricName: qsTr("Network")
                value: telemetry.netSpeed
                unit: qsTr("MB/s")
                thresholds: telemetry.thresholds(50, 100, 200)
                icon: "network"
                maxValue: 500
            }
        }

        // From here on some thresholds fall from left to right, and their gauges are red where all is well.
        GaugeSection {
            width: page.innerWidth
            title: qsTr("TRAINING DYNAMICS")
            icon: "waveform.path.ecg"

            GaugeMeterView {
                metricName: qsTr("Throughput")
                value: telemetry.throughput
                unit: qsTr("tok/s")
                thresholds: telemetry.thresholds(2000, 1000, 500)
                icon: "text.append"
                maxValue: 5000
            }

            GaugeMeterView {
                metricName: qsTr("Speed")
                value: telemetry.trainingSpeed
                unit: qsTr("it/s")
                thresholds: telemetry.thresholds(2, 1, 0.5)
                icon: "hare.fill"
                maxValue: 10
            }

            GaugeMeterView {
                metricName: qsTr("Grad Norm")
                value: telemetry.gradientNorm
                thresholds: telemetry.thresholds(1, 2, 5)
                icon: "function"
                maxValue: 10
            }
        }

        GaugeSection {
            width: page.innerWidth
            title: qsTr("MODEL HEALTH")
            icon: "brain.head.profile"

            GaugeMeterView {
                metricName: qsTr("Confidence")
                value: telemetry.modelConfidence * 100
                unit: "%"
                thresholds: telemetry.thresholds(80, 60, 40)
                icon: "checkmark.shield.fill"
                maxValue: 100
            }

            GaugeMeterView {
                metricName: qsTr("Loss")
                value: telemetry.loss
                thresholds: telemetry.thresholds(0.5, 1, 2)
                icon: "chart.line.downtrend.xyaxis"
                maxValue: 3
            }

            GaugeMeterView {
                metricName: qsTr("Data Quality")
                value: telemetry.dataQuality
                unit: "Q"
                thresholds: telemetry.thresholds(90, 80, 70)
                icon: "doc.text.magnifyingglass"
                maxValue: 100
            }
        }
    }
}
