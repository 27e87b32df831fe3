// Cards of which one is chosen, two in a row: the arrow keys go from one to the next and choose it.
import QtQuick
import Quillmere.Tools

Grid {
    id: grid

    required property string name

    // Whole points, so that edges are sharp.
    readonly property real cardWidth: Math.floor((width - spacing) / 2)

    function choose(step: int) {
        for (let i = 0; i < grid.children.length; ++i) {
            const next = grid.children[i + step] as ChoiceCard;
            if (grid.children[i].activeFocus && next) {
                next.forceActiveFocus(Qt.TabFocusReason);
                next.press();
                return;
            }
        }
    }

    columns: 2
    spacing: 12
    Accessible.role: Accessible.Grouping
    Accessible.name: name
    Keys.onLeftPressed: choose(-1)
    Keys.onRightPressed: choose(1)
    Keys.onUpPressed: choose(-columns)
    Keys.onDownPressed: choose(columns)
}
