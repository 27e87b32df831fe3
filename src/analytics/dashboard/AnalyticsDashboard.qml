// The Analytics destination: a header, six tabs, and the screen of the one on show.
import QtQuick
import Quillmere.Analytics

Rectangle {
    id: view

    property int selectedTab: StudioAnalyticsTab.Overview
    property bool isTelemetryFull: false
    property bool showSystemMonitor: false

    color: "black"

    DashboardHeader {
        id: header

        width: view.width
        isTelemetryFull: view.isTelemetryFull
        showSystemMonitor: view.showSystemMonitor
        onTelemetryToggled: view.isTelemetryFull = !view.isTelemetryFull
        onSystemMonitorToggled: view.showSystemMonitor = !view.showSystemMonitor
        onSystemMonitorDismissed: view.showSystemMonitor = false
    }

    AnalyticsTabStrip {
        id: strip

        anchors.top: header.bottom
        width: view.width
        z: 1
        selectedTab: view.selectedTab
        onSelected: tab => view.selectedTab = tab
    }

    // One screen at a time: a change of the tab ends the one before, with all that it simulates.
    Loader {
        id: content

        anchors.top: strip.bottom
        anchors.bottom: view.bottom
        width: view.width
        source: StudioAnalyticsTab.view(view.selectedTab)
    }

    Binding {
        readonly property TrainingTelemetryView training: content.item as TrainingTelemetryView

        target: training
        when: training !== null
        property: "isFullTelemetry"
        value: view.isTelemetryFull
    }
}
