// A metric of the run: its figure, and how it moves.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

AnalyticsCard {
    id: card

    required property string title
    required property string value
    required property string trend
    property color valueColor: "white"

    implicitHeight: texts.height + 24
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ": " + value + ", " + trend

    Column {
        id: texts

        x: 12
        y: 12
        width: card.width - 24
        spacing: 8

        Label {
            width: parent.width
            text: card.title
            font: Theme.monospaced(10, Font.Bold)
            color: Color.gray
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            text: card.value
            font: Theme.monospaced(24, Font.Medium)
            color: card.valueColor
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        Label {
            width: parent.width
            text: card.trend
            font: Theme.monospaced(11)
            color: MetricTrend.color(card.trend)
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
