// The fine-tune wizard in a sheet.
import Quillmere.Controls
import Quillmere.Tools

Sheet {
    id: sheet

    contentWidth: 900
    // As high as the wizard's highest step, where the window leaves room for it.
    contentHeight: Math.max(700, Math.min(776, sheet.parent.height - 40))
    hasCloseMark: true
    title: qsTr("New Training")
    fillColor: "black"

    // The sheet draws the ground, for its corners are round.
    content: SimplifiedFineTuningView {
        color: "transparent"
    }
}
