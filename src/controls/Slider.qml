// A value on a line between two ends. Its owner says which value it is, and changes it when it is moved.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: slider

    // Its name for assistive programs.
    required property string label
    required property real value
    property real from: 0
    property real to: 1
    property color tint: Color.blue

    signal moved(value: real)

    readonly property real part: to > from ? Math.max(0, Math.min((value - from) / (to - from), 1)) : 0
    readonly property real travel: width - knob.width
    readonly property bool pressed: area.pressed
    readonly property bool visualFocus: activeFocus && Keyboard.inUse
    readonly property real step: (to - from) / 100

    function moveTo(wanted: real) {
        const inside = Math.max(from, Math.min(wanted, to));
        if (inside !== value) {
            moved(inside);
        }
    }

    implicitWidth: 120
    implicitHeight: 16
    opacity: enabled ? 1 : 0.5

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: slider.width
        height: 4
        radius: 2
        color: area.containsMouse || slider.pressed ? Qt.tint(Theme.track, Theme.hovered) : Theme.track

        Rectangle {
            width: knob.x + knob.width / 2
            height: parent.height
            radius: parent.radius
            color: slider.tint
        }
    }

    Rectangle {
        id: knob

        x: Math.round(slider.part * slider.travel)
        anchors.verticalCenter: parent.verticalCenter
        width: 16
        height: 16
        radius: 8
        color: slider.pressed ? Qt.tint("white", Color.faded("black", 0.1)) : "white"

        FocusRing {
            visible: slider.visualFocus
            cornerRadius: knob.radius
        }
    }

    ValueAccess {
        id: access

        label: slider.label
        current: slider.value
        minimumValue: slider.from
        maximumValue: slider.to
        stepSize: slider.step
        Accessible.role: Accessible.Slider
        onWritten: value => slider.moveTo(value)
        onIncreased: slider.moveTo(slider.value + slider.step)
        onDecreased: slider.moveTo(slider.value - slider.step)
        Keys.onPressed: event => {
            const targets = {
                [Qt.Key_Left]: slider.value - slider.step,
                [Qt.Key_Down]: slider.value - slider.step,
                [Qt.Key_Right]: slider.value + slider.step,
                [Qt.Key_Up]: slider.value + slider.step,
                [Qt.Key_PageDown]: slider.value - 10 * slider.step,
                [Qt.Key_PageUp]: slider.value + 10 * slider.step,
                [Qt.Key_Home]: slider.from,
                [Qt.Key_End]: slider.to
            };
            const target = targets[event.key];
            const hasModifiers = event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier);
            event.accepted = target !== undefined && !hasModifiers;
            if (event.accepted) {
                slider.moveTo(target);
            }
        }
    }

    MouseArea {
        id: area

        // Where on the knob it is held.
        property real grip: 0

        function follow(x: real) {
            if (slider.travel > 0) {
                slider.moveTo(slider.from + (x - grip) / slider.travel * (slider.to - slider.from));
            }
        }

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            access.forceActiveFocus(Qt.MouseFocusReason);
            const start = slider.part * slider.travel;
            if (mouse.x >= start && mouse.x < start + knob.width) {
                grip = mouse.x - start;
            } else {
                grip = knob.width / 2;
                follow(mouse.x);
            }
        }
        onPositionChanged: mouse => {
            if (pressed) {
                follow(mouse.x);
            }
        }
    }
}
