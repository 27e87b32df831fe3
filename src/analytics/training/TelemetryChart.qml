// Lines of the run under a title. Steps go on for ever and mean little, so there is no X axis.
import QtQuick
import Quillmere.Analytics
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

AnalyticsCard {
    id: card

    required property string title
    default property alias series: chart.series

    Label {
        id: heading

        x: 12
        y: 12
        width: card.width - 24
        text: card.title
        font: Theme.monospaced(12, Font.Bold)
        color: Color.gray
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }

    LineChart {
        id: chart

        anchors.top: heading.bottom
        anchors.topMargin: 8
        anchors.bottom: card.bottom
        anchors.bottomMargin: 12
        x: 12
        width: card.width - 24
        smoothed: true
        showsXAxis: false
    }
}
