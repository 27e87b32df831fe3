// A region whose content is higher than itself. Its owner tells the content's height.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls

Flickable {
    id: area

    // Pressing and dragging belongs to what stands in the region, the wheel and the bar scroll.
    interactive: false
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentWidth: width
    activeFocusOnTab: bar.scrollable
    Accessible.role: Accessible.Pane
    Keys.onPressed: event => bar.scrollByKey(event)

    T.ScrollBar.vertical: ListScroll {
        id: bar
    }
}
