// Pills of which one holds at a time: the arrow keys go from one to the next and choose it.
import QtQuick
import Quillmere.Controls

Row {
    id: row

    function choose(step) {
        const pills = [];
        let current = -1;
        for (let i = 0; i < row.children.length; ++i) {
            const child = row.children[i];
            if (child instanceof Pill && child.visible && child.enabled) {
                if (child.activeFocus) {
                    current = pills.length;
                }
                pills.push(child);
            }
        }
        const next = pills[current + step];
        if (current >= 0 && next) {
            next.forceActiveFocus(Qt.TabFocusReason);
            next.press();
        }
    }

    spacing: 8
    Accessible.role: Accessible.Grouping
    Keys.onLeftPressed: choose(-1)
    Keys.onRightPressed: choose(1)
}
