// A row of bars without axes, aligned at the bottom. With its gaps it may be a little wider or narrower than the chart, and stands
// in the middle of it.
import QtQuick
import Quillmere.Charts
import Quillmere.Theme

Item {
    id: chart

    // Fractions of the height.
    property alias heights: bars.heights

    StripBars {
        id: bars

        x: (chart.width - width) / 2
        width: Math.max(0, heights.length * (barWidth + spacing) - spacing)
        height: chart.height
        barWidth: chart.width / 22
        spacing: 4
        radius: 2
        topColor: Color.faded("white", 0.1)
        bottomColor: Color.faded("white", 0.05)
    }
}
