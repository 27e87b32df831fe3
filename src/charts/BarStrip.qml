// A row of bars without axes, aligned at the bottom. With its gaps it may be a little wider or narrower than the item, and
// stands in the middle of it.
import QtQuick
import Quillmere.Charts
import Quillmere.Theme

Item {
    id: strip

    // Fractions of the height.
    property alias heights: painted.heights
    property alias barWidth: painted.barWidth
    property alias spacing: painted.spacing
    property alias radius: painted.radius
    property alias topColor: painted.topColor
    property alias bottomColor: painted.bottomColor

    implicitHeight: 100

    StripBars {
        id: painted

        x: (strip.width - width) / 2
        width: Math.max(0, heights.length * (barWidth + spacing) - spacing)
        height: strip.height
        barWidth: strip.width / 22
        topColor: Color.faded(Theme.textPrimary, 0.1)
        bottomColor: Color.faded(Theme.textPrimary, 0.05)
    }
}
