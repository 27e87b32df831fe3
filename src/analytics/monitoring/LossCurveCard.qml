// A falling staircase of bars. Its legend names two series, the bars are one.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    required property list<real> bars

    Item {
        id: header

        x: 20
        y: 20
        width: card.width - 40
        height: Math.max(title.height, legend.height)

        Label {
            id: title

            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Loss Curve")
            font: Theme.bodyMediumFont
            color: "white"
            Accessible.role: Accessible.Heading
        }

        Row {
            id: legend

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            spacing: 12

            LegendItem {
                color: "white"
                label: qsTr("Train")
            }

            LegendItem {
                color: Color.blue
                label: qsTr("Val")
            }
        }
    }

    LossCurveChart {
        anchors.top: header.bottom
        anchors.topMargin: 20
        anchors.bottom: card.bottom
        anchors.bottomMargin: 20
        x: 20
        width: card.width - 40
        heights: card.bars
    }
}
