// One step of the indicator: its number, or a check once it is past, its name, and the way to the next one.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Row {
    id: mark

    required property int step
    required property int currentStep
    required property string label
    // None after the last step.
    required property bool hasConnector
    required property real connectorWidth

    readonly property bool isCurrent: currentStep === step
    readonly property bool isPast: currentStep > step
    readonly property color resting: Color.faded("white", 0.1)
    // Disc and label, without the connector.
    readonly property real ownWidth: disc.width + spacing + name.width

    spacing: 12
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Step %1: %2").arg(step + 1).arg(label)
    Accessible.description: isCurrent ? qsTr("Current") : isPast ? qsTr("Done") : ""

    component Blend: ColorAnimation {
        duration: Motion.standard
        easing.type: Easing.InOutQuad
    }

    Rectangle {
        id: disc

        width: 28
        height: 28
        radius: 14
        color: mark.currentStep >= mark.step ? Color.blue : mark.resting

        Behavior on color {
            Blend {}
        }

        Label {
            anchors.centerIn: parent
            visible: !mark.isPast
            text: mark.step + 1
            font: Theme.rounded(12, Font.Bold)
            color: mark.isCurrent ? "white" : Color.gray
            Accessible.ignored: true
        }

        SymbolIcon {
            anchors.centerIn: parent
            visible: mark.isPast
            name: "checkmark"
            size: 12
            bold: true
            color: "white"
        }
    }

    Label {
        id: name

        anchors.verticalCenter: parent.verticalCenter
        // Whole points, so that the next disc is sharp.
        width: Math.ceil(implicitWidth)
        text: mark.label
        font: Theme.rounded(13, mark.isCurrent ? Font.DemiBold : Font.Normal)
        color: mark.step > mark.currentStep ? Color.gray : "white"
        Accessible.ignored: true

        Behavior on color {
            Blend {}
        }
    }

    Item {
        visible: mark.hasConnector
        width: mark.connectorWidth + 16
        height: 28

        Rectangle {
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            width: mark.connectorWidth
            height: 2
            color: mark.isPast ? Color.blue : mark.resting

            Behavior on color {
                Blend {}
            }
        }
    }
}
