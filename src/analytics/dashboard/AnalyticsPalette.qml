// The colours of the analytics screens' own, darker look.
pragma Singleton

import QtQuick

QtObject {
    readonly property color strip: "#111111" // header, tabs
    readonly property color line: "#1F1F1F" // below a strip
    readonly property color card: "#1A1A1A" // also the selected tab
    readonly property color cardStroke: "#333333" // also the edge of a side panel
    readonly property color panel: "#161616" // controls at the side
}
