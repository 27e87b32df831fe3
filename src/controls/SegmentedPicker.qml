// A few choices in one row of which one holds: the arrow keys go from one to the next and choose it. Its owner says which holds, and
// changes that when another is picked.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: picker

    // Its name for assistive programs.
    required property string label
    required property list<string> entries
    // -1: none holds.
    required property int currentIndex
    property font font: Theme.system(12, Font.Medium)

    readonly property int inset: 2
    readonly property real segmentWidth: (width - 2 * inset) / Math.max(1, entries.length)

    signal picked(index: int)

    function pick(index: int) {
        if (index >= 0 && index < entries.length && index !== currentIndex) {
            picked(index);
        }
    }

    // The keyboard goes along with the choice.
    function follow() {
        const held = segments.itemAt(Math.max(0, currentIndex));
        if (activeFocus && held) {
            held.forceActiveFocus(Qt.OtherFocusReason);
        }
    }

    function widest(): real {
        let width = 0;
        for (let i = 0; i < segments.count; ++i) {
            width = Math.max(width, segments.itemAt(i)?.implicitWidth ?? 0);
        }
        return width;
    }

    implicitWidth: segments.count * widest() + 2 * inset
    implicitHeight: 24
    opacity: enabled ? 1 : 0.5
    Accessible.role: Accessible.Grouping
    Accessible.name: label
    onCurrentIndexChanged: follow()
    onActiveFocusChanged: {
        if (Window.activeFocusItem === picker) {
            follow();
        }
    }

    Keys.onLeftPressed: pick(currentIndex - 1)
    Keys.onUpPressed: pick(currentIndex - 1)
    Keys.onRightPressed: pick(currentIndex + 1)
    Keys.onDownPressed: pick(currentIndex + 1)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted) {
            pick(event.key === Qt.Key_Home ? 0 : entries.length - 1);
        }
    }

    Rectangle {
        anchors.fill: parent
        radius: 6
        color: Theme.controlBackground
    }

    Row {
        x: picker.inset
        y: picker.inset

        Repeater {
            id: segments

            model: picker.entries

            ButtonBase {
                id: segment

                required property int index
                required property string modelData

                readonly property bool selected: index === picker.currentIndex

                width: picker.segmentWidth
                height: picker.height - 2 * picker.inset
                text: modelData
                font: picker.font
                horizontalPadding: 10
                radius: 5
                labelColor: selected ? "white" : Theme.secondaryLabel
                fillColor: selected ? Theme.track : "transparent"
                disabledOpacity: 1
                // One stop of the keyboard: the choice that holds, or the first where none does.
                activeFocusOnTab: selected || index === 0 && picker.currentIndex < 0
                Accessible.role: Accessible.RadioButton
                Accessible.checkable: true
                Accessible.checked: selected
                Accessible.onToggleAction: press()
                onClicked: {
                    forceActiveFocus(Qt.MouseFocusReason);
                    picker.pick(index);
                }

                Divider {
                    x: -width
                    anchors.verticalCenter: parent.verticalCenter
                    height: 12
                    vertical: true
                    visible: segment.index > 0 && !segment.selected && segment.index !== picker.currentIndex + 1
                }
            }
        }
    }
}
