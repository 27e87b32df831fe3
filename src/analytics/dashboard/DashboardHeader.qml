// The head of the analytics dashboard: its name, four figures that never change, and the controls that hold on every tab.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: header

    required property bool isTelemetryFull
    required property bool showSystemMonitor

    signal telemetryToggled
    signal systemMonitorToggled
    signal systemMonitorDismissed

    implicitHeight: 24 + Math.max(title.height, status.height, telemetry.height)
    color: AnalyticsPalette.strip

    Row {
        id: title

        x: 20
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: "chart.xyaxis.line"
            size: 18
            color: Color.cyan
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("QUILLMERE TELEMETRY")
            font: Theme.tracked(Theme.system(13, Font.DemiBold), 1.2)
            color: "white"
            Accessible.role: Accessible.Heading
        }
    }

    Row {
        id: status

        anchors.right: controls.left
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        spacing: 16

        StatusIndicator {
            label: qsTr("GPU")
            value: "82°C"
            color: Color.green
        }

        StatusIndicator {
            label: qsTr("UTIL")
            value: "94%"
            color: Color.yellow
        }

        StatusIndicator {
            label: qsTr("VRAM")
            value: qsTr("14GB")
            color: Color.purple
        }

        StatusIndicator {
            label: qsTr("TPS")
            value: "4.2k"
            color: Color.cyan
        }
    }

    Row {
        id: controls

        anchors.right: parent.right
        // What is drawn of the button counts, and not the room around it that takes a press as well.
        anchors.rightMargin: 20 - monitor.padding
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12 - monitor.padding

        Switch {
            id: telemetry

            anchors.verticalCenter: parent.verticalCenter
            small: true
            text: qsTr("Full Telemetry")
            checked: header.isTelemetryFull
            onToggled: header.telemetryToggled()
        }

        IconButton {
            id: monitor

            anchors.verticalCenter: parent.verticalCenter
            symbol: "cpu"
            label: qsTr("System Monitor")
            color: header.showSystemMonitor ? Color.cyan : Color.gray
            onClicked: header.systemMonitorToggled()

            SystemMonitorPopover {
                visible: header.showSystemMonitor
                onDismissed: header.systemMonitorDismissed()
            }
        }
    }

    Divider {
        anchors.bottom: parent.bottom
        width: parent.width
        color: AnalyticsPalette.line
    }
}
