// A scrolling list of cards with air around them.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls

ListView {
    id: list

    required property string accessibleName

    topMargin: 24
    bottomMargin: 24
    spacing: 12
    clip: true
    interactive: false
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    activeFocusOnTab: bar.scrollable
    Accessible.role: Accessible.List
    Accessible.name: accessibleName
    Keys.onPressed: event => bar.scrollByKey(event)

    T.ScrollBar.vertical: ListScroll {
        id: bar
    }
}
