// The axes of a chart: grid lines, and the labels beside them, around the area in which the marks are drawn.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: frame

    required property ChartMarks marks
    property bool showsXAxis: true
    // What assistive programs read; by itself the data in a sentence or two.
    property string summary: marks.summary

    // Between the ends of the axes. How high it is depends on nothing that the data tell: the ticks depend on it in turn.
    readonly property alias plot: area

    readonly property real lineHeight: Math.ceil(metrics.height)
    readonly property real labelGap: 6
    // Clear of the lower half of the lowest label beside the other axis.
    readonly property real xLabelGap: Math.max(labelGap, Math.ceil(lineHeight / 2))
    readonly property real band: area.width / Math.max(1, marks.xTicks.length)
    // Grid lines and the edges of the plot lie on whole pixels at any scale, and a hair's breadth is whole pixels.
    readonly property real pixel: 1 / Screen.devicePixelRatio
    readonly property real hairline: Math.max(1, Math.floor(Screen.devicePixelRatio)) * pixel

    function onPixel(place: real): real {
        return Math.round(place / pixel) * pixel;
    }

    implicitWidth: 320
    implicitHeight: 200
    Accessible.role: Accessible.Chart
    Accessible.name: summary

    FontMetrics {
        id: metrics

        font: frame.marks.labelFont
    }

    Item {
        id: area

        readonly property real bottomMargin: frame.showsXAxis ? frame.lineHeight + frame.xLabelGap : y

        x: frame.marks.yLabelWidth > 0 ? frame.onPixel(frame.marks.yLabelWidth + frame.labelGap) : 0
        y: frame.onPixel(Math.ceil(frame.lineHeight / 2))
        width: Math.max(0, frame.onPixel(frame.width - x))
        height: Math.max(0, frame.onPixel(frame.height - y - bottomMargin))
    }

    Repeater {
        model: frame.marks.yTicks

        Item {
            id: yTick

            required property chartTick modelData

            y: frame.onPixel(area.y + (1 - modelData.place) * area.height)

            Rectangle {
                x: area.x
                y: -frame.onPixel(frame.hairline / 2)
                width: area.width
                height: frame.hairline
                color: Color.faded(Color.gray, 0.2)
            }

            Label {
                x: area.x - frame.labelGap - width
                y: -height / 2
                text: yTick.modelData.text
                font: frame.marks.labelFont
                color: Color.gray
                Accessible.ignored: true
            }
        }
    }

    Repeater {
        // A chart that is lower than its labels has none.
        model: frame.showsXAxis && area.y + area.height + frame.xLabelGap + frame.lineHeight <= frame.height ? frame.marks.xTicks : []

        Item {
            id: xTick

            required property chartTick modelData

            x: frame.onPixel(area.x + modelData.place * area.width)

            Rectangle {
                x: -frame.onPixel(frame.hairline / 2)
                y: area.y
                width: frame.hairline
                height: area.height
                visible: xTick.modelData.hasLine
                color: Color.faded(Color.gray, 0.2)
            }

            Label {
                x: Math.max(-xTick.x, Math.min(-width / 2, frame.width - xTick.x - width))
                y: area.y + area.height + frame.xLabelGap
                // What stands under a bar has the width of its band.
                width: xTick.modelData.hasLine ? implicitWidth : Math.min(implicitWidth, Math.max(0, frame.band - frame.labelGap))
                text: xTick.modelData.text
                elide: Text.ElideRight
                font: frame.marks.labelFont
                color: Color.gray
                Accessible.ignored: true
            }
        }
    }
}
