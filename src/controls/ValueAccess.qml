// Where the keyboard and assistive programs reach a control that holds a value. What these write there is handed on to the control,
// whose owner decides: until then the value stays what the owner says.
import QtQuick

Item {
    id: access

    required property string label
    required property real current

    // Assistive programs know these names.
    property real value: current
    property real minimumValue: -9e15
    property real maximumValue: 9e15
    property real stepSize: 1

    signal written(value: real)
    signal increased
    signal decreased

    anchors.fill: parent
    focus: true
    activeFocusOnTab: true
    Accessible.name: label
    Accessible.description: enabled ? "" : qsTr("Unavailable")
    Accessible.focusable: enabled
    Accessible.onIncreaseAction: {
        if (access.enabled) {
            access.increased();
        }
    }
    Accessible.onDecreaseAction: {
        if (access.enabled) {
            access.decreased();
        }
    }

    onValueChanged: {
        if (value !== current) {
            const wanted = value;
            value = Qt.binding(() => access.current);
            if (access.enabled && !isNaN(wanted)) {
                access.written(wanted);
            }
        }
    }
}
