// Bars over axes that follow their values, from zero.
import QtQuick
import Quillmere.Charts

ChartFrame {
    id: chart

    property alias bars: painted.bars

    marks: painted
    data: BarMarks {
        id: painted

        anchors.fill: chart.plot
        anchors.margins: -bleed
    }
}
