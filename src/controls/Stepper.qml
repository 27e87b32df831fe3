// Two halves that move a value up and down, once for each press and on while they are held. Its owner knows the value and steps it.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: stepper

    // Its name for assistive programs, which are also told the value and its step.
    required property string label
    required property real value
    property real stepSize: 1
    readonly property bool visualFocus: activeFocus && Keyboard.inUse

    // By 1 or -1.
    signal stepped(direction: int)

    component Half: Item {
        id: half

        required property int direction
        required property string symbol

        width: stepper.width
        height: stepper.height / 2

        Rectangle {
            anchors.fill: parent
            anchors.margins: 1
            radius: 5
            color: area.pressed && area.containsMouse ? Theme.track : area.containsMouse ? Theme.hovered : "transparent"
        }

        SymbolIcon {
            anchors.centerIn: parent
            name: half.symbol
            size: 8
            bold: true
            color: Theme.label
        }

        MouseArea {
            id: area

            anchors.fill: parent
            hoverEnabled: true
            preventStealing: true
            onPressed: {
                access.forceActiveFocus(Qt.MouseFocusReason);
                stepper.stepped(half.direction);
            }
        }

        AutoRepeat {
            running: area.pressed && area.containsMouse
            onTriggered: stepper.stepped(half.direction)
        }
    }

    implicitWidth: 20
    implicitHeight: 24
    opacity: enabled ? 1 : 0.5

    Rectangle {
        anchors.fill: parent
        radius: 6
        color: Theme.bordered
    }

    ValueAccess {
        id: access

        label: stepper.label
        current: stepper.value
        stepSize: stepper.stepSize
        Accessible.role: Accessible.SpinBox
        onWritten: value => stepper.stepped(value > stepper.value ? 1 : -1)
        onIncreased: stepper.stepped(1)
        onDecreased: stepper.stepped(-1)
        Keys.onUpPressed: stepper.stepped(1)
        Keys.onDownPressed: stepper.stepped(-1)
    }

    Half {
        direction: 1
        symbol: "chevron.up"
    }

    Half {
        y: height
        direction: -1
        symbol: "chevron.down"
    }

    FocusRing {
        visible: stepper.visualFocus
    }
}
