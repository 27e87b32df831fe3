// The fine-tune wizard in a sheet.
import Quillmere.Controls
import Quillmere.Tools

Sheet {
    contentWidth: 900
    contentHeight: 700
    hasCloseMark: true
    title: qsTr("New Training")
    fillColor: "black"

    // The sheet draws the ground, for its corners are round.
    content: SimplifiedFineTuningView {
        color: "transparent"
    }
}
