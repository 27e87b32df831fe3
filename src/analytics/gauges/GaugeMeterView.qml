// One gauge: an arc around a figure, and below it what is measured. It grows a little under the pointer.
import QtQuick
import Quillmere.Analytics
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: meter

    required property string metricName
    required property real value
    property string unit
    property gaugeThresholds thresholds
    required property string icon
    required property real maxValue

    readonly property bool isHovering: hover.hovered
    readonly property color labelColor: isHovering ? "white" : Color.gray

    implicitHeight: content.height + 32
    scale: isHovering ? 1.02 : 1
    Accessible.role: Accessible.StaticText
    Accessible.name: metricName + ": " + gauge.text + (unit.length > 0 ? " " + unit : "")

    Behavior on scale {
        NumberAnimation {
            duration: Motion.hover
            easing: Motion.hoverSpring
        }
    }

    Component.onCompleted: gauge.appear()

    GaugeMeterState {
        id: gauge

        value: meter.value
        maxValue: meter.maxValue
        thresholds: meter.thresholds
    }

    HoverHandler {
        id: hover
    }

    GrowingPanel {
        anchors.fill: parent
        grown: meter.scale
        radius: 20
        color: Color.faded("white", 0.03)
        strokeColor: Color.faded("white", meter.isHovering ? 0.1 : 0.05)
    }

    Column {
        id: content

        x: 16
        y: 16
        width: meter.width - 32
        spacing: 12

        ArcGauge {
            width: parent.width
            height: 100
            fraction: gauge.fraction
            color: gauge.statusColor

            Column {
                anchors.centerIn: parent

                RollingNumber {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: gauge.text
                    font: Theme.system(28, Font.Bold)
                }

                Label {
                    anchors.horizontalCenter: parent.horizontalCenter
                    visible: text.length > 0
                    text: meter.unit
                    font: Theme.system(11, Font.Medium)
                    color: Color.gray
                    Accessible.ignored: true
                }
            }
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 6

            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                name: meter.icon
                size: 10
                color: meter.labelColor
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: meter.metricName
                font: Theme.rounded(12, Font.Medium)
                color: meter.labelColor
                Accessible.ignored: true
            }
        }
    }
}
