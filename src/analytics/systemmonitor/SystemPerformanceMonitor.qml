// Four gauges and a throughput curve, none of which measures anything: both devices show the same figures.
import QtQuick
import Quillmere.Analytics
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: monitor

    // Of the header's upper corners, for a host with round ones.
    property real topRadius: 0

    // Where the panel is too low for all below each other, the gauges stand in one row and the curve beside them.
    readonly property bool isLow: height < fullHeight
    readonly property real fullHeight: bodyTop + 48 + 2 * clock.implicitHeight + gauges.spacing + strip.implicitHeight
    readonly property real bodyTop: header.height + line.height

    // What lies in the middle of the body.
    function middle(height: real): real {
        return bodyTop + (monitor.height - bodyTop - height) / 2;
    }

    implicitWidth: 320
    implicitHeight: fullHeight

    SystemPerformanceMonitorState {
        id: panel
    }

    Rectangle {
        id: header

        width: monitor.width
        height: picker.height + 24
        radius: monitor.topRadius
        color: AnalyticsPalette.line

        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: parent.radius
            color: parent.color
        }

        Label {
            anchors.left: parent.left
            anchors.right: picker.left
            anchors.margins: 12
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("SYSTEM MONITOR")
            font: Theme.monospaced(12, Font.Black)
            color: "white"
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
        }

        SegmentedPicker {
            id: picker

            anchors.right: parent.right
            anchors.rightMargin: 12
            y: 12
            width: 100
            label: qsTr("Device")
            entries: [qsTr("GPU"), qsTr("CPU")]
            currentIndex: panel.selectedDevice
            onPicked: index => panel.selectedDevice = index
        }
    }

    Divider {
        id: line

        anchors.top: header.bottom
        width: monitor.width
        color: AnalyticsPalette.cardStroke
    }

    Grid {
        id: gauges

        readonly property real share: ((monitor.isLow ? monitor.width / 2 : monitor.width) - 32 - (columns - 1) * spacing) / columns
        readonly property real cellWidth: Math.max(share, power.implicitWidth, clock.implicitWidth)

        x: 16
        y: monitor.isLow ? monitor.middle(height) : monitor.bodyTop + 16
        columns: monitor.isLow ? 4 : 2
        spacing: 16

        MonitorGauge {
            width: gauges.cellWidth
            label: qsTr("TEMP")
            value: 82
            unit: "°C"
            max: 100
            color: Color.green
        }

        MonitorGauge {
            width: gauges.cellWidth
            label: qsTr("UTIL")
            value: 94
            unit: "%"
            max: 100
            color: Color.yellow
        }

        MonitorGauge {
            id: power

            width: gauges.cellWidth
            label: qsTr("POWER")
            value: 320
            unit: "W"
            max: 450
            color: Color.orange
        }

        MonitorGauge {
            id: clock

            width: gauges.cellWidth
            label: qsTr("CLOCK")
            value: 2.1
            unit: qsTr("GHz")
            max: 3
            color: Color.cyan
        }
    }

    Column {
        id: strip

        x: monitor.isLow ? gauges.x + gauges.width + 32 : 16
        y: monitor.isLow ? monitor.middle(height) : monitor.height - height - 16
        width: monitor.width - x - 16
        spacing: 4

        Label {
            width: strip.width
            text: qsTr("THROUGHPUT (TOK/S)")
            font: Theme.monospaced(10, Font.Bold)
            color: Color.gray
            elide: Text.ElideRight
        }

        Rectangle {
            width: strip.width
            height: 30
            radius: 4
            color: AnalyticsPalette.strip

            Sparkline {
                anchors.fill: parent
                points: panel.throughput
                color: Color.cyan
                lineWidth: 1.5
            }
        }
    }
}
