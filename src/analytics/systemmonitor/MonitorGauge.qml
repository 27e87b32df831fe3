// A figure in a ring that is filled up to it, without decimals, and beside it what it is and its unit.
import QtQuick
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: item

    required property string label
    required property real value
    required property string unit
    required property real max
    required property color color

    implicitWidth: gauge.width + 8 + words.width
    implicitHeight: gauge.height
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + gauge.text + " " + unit

    CompactGauge {
        id: gauge

        value: item.value
        maximum: item.max
        text: Format.real("%.0f", item.value)
        color: item.color
    }

    Column {
        id: words

        anchors.left: gauge.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Label {
            text: item.label
            font: Theme.monospaced(10)
            color: Color.gray
            Accessible.ignored: true
        }

        Label {
            text: item.unit
            font: Theme.system(10, Font.Bold)
            color: "white"
            Accessible.ignored: true
        }
    }
}
