// A fraction as a ring around the figure that it stands for. The two are told apart and need not agree.
import QtQuick
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: gauge

    required property real value
    required property string label
    required property color color
    required property string valueText
    // What stands before the label.
    property string symbol

    readonly property list<string> parts: valueText.split(" ")

    implicitHeight: content.height + 24
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + valueText

    Rectangle {
        anchors.fill: parent
        radius: 8
        color: Color.faded("black", 0.3)
    }

    Column {
        id: content

        anchors.centerIn: parent
        spacing: 8

        RingGauge {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 60
            height: 60
            fraction: gauge.value
            color: gauge.color
            trackColor: Color.faded("white", 0.1)
            strokeWidth: 4

            Column {
                anchors.centerIn: parent

                Label {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: gauge.parts[0]
                    font: Theme.system(16, Font.Bold)
                    color: "white"
                    Accessible.ignored: true
                }

                Label {
                    anchors.horizontalCenter: parent.horizontalCenter
                    visible: gauge.parts.length > 1
                    text: gauge.parts[1] ?? ""
                    font: Theme.monospaced(9)
                    color: Theme.textTertiary
                    Accessible.ignored: true
                }
            }
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 4

            SymbolIcon {
                // At the middle of the capitals, which have no descenders.
                anchors.verticalCenter: parent.verticalCenter
                anchors.verticalCenterOffset: -1
                visible: name.length > 0
                name: gauge.symbol
                size: 8
                color: Theme.textSecondary
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: gauge.label
                font: Theme.monospaced(10, Font.Bold)
                color: Theme.textSecondary
                Accessible.ignored: true
            }
        }
    }
}
