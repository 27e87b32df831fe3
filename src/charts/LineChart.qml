// Lines over axes that follow their points. An X axis that is hidden has no grid lines either.
import QtQuick
import Quillmere.Charts

ChartFrame {
    id: chart

    default property alias series: painted.series
    property alias smoothed: painted.smoothed
    property alias lineWidth: painted.lineWidth

    marks: painted
    data: LineMarks {
        id: painted

        anchors.fill: chart.plot
        anchors.margins: -bleed
    }
}
