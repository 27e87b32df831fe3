// Four figures of the machine, all of them sample values.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    Row {
        id: title

        x: 20
        y: 20
        spacing: 8

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: "server.rack"
            size: 14
            color: Theme.textTertiary
        }

        Label {
            text: qsTr("Hardware")
            font: Theme.bodyMediumFont
            color: "white"
            Accessible.role: Accessible.Heading
        }
    }

    FlexibleGrid {
        id: gauges

        readonly property real cellHeight: Math.floor((height - spacing) / 2)

        anchors.top: title.bottom
        anchors.topMargin: 20
        anchors.bottom: card.bottom
        anchors.bottomMargin: 20
        x: 20
        width: card.width - 40
        columns: 2
        spacing: 16

        GaugeItem {
            height: gauges.cellHeight
            value: 0.92
            label: qsTr("GPU UTIL")
            symbol: "bolt.fill"
            color: "white"
            valueText: "92%"
        }

        GaugeItem {
            height: gauges.cellHeight
            value: 0.18
            label: qsTr("VRAM")
            color: Color.purple
            valueText: "18 " + qsTr("GB")
        }

        GaugeItem {
            height: gauges.cellHeight
            value: 0.45
            label: qsTr("RAM")
            color: Color.blue
            valueText: "45 " + qsTr("GB")
        }

        GaugeItem {
            height: gauges.cellHeight
            value: 0.34
            label: qsTr("TEMP")
            color: Color.green
            valueText: "34 °C"
        }
    }
}
