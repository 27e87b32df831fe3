// A small ring, open at the bottom, that is filled up to a value, with a text in its middle.
import QtQuick
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

RingGauge {
    id: gauge

    property real value
    property real maximum: 1
    property string text

    implicitWidth: 58
    implicitHeight: 58
    fraction: value / maximum
    startAngle: 135
    spanAngle: 270
    strokeWidth: 5

    Label {
        anchors.centerIn: parent
        text: gauge.text
        font: Theme.monospaced(20, Font.Bold)
        color: gauge.color
    }
}
