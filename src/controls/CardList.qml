// A scrolling list of cards with air around them.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls

ListView {
    id: list

    required property string accessibleName

    // For a list that has become another one.
    function startOver() {
        forceLayout();
        contentY = originY - topMargin;
    }

    // For one that leaves the list, until it is used again: nobody reaches it, and the keyboard stays here.
    function retire(row) {
        Keyboard.leave(row);
        row.visible = false;
    }

    topMargin: 24
    bottomMargin: 24
    spacing: 12
    clip: true
    interactive: false
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    // Only what shows is made: a card that Qt 6.4 was making ahead of time is never freed when the view goes meanwhile.
    cacheBuffer: 0
    // Tab goes from row to row, and so the next one on either side is there too.
    displayMarginBeginning: 160
    displayMarginEnd: 160
    activeFocusOnTab: bar.scrollable
    Accessible.role: Accessible.List
    Accessible.name: accessibleName
    Keys.onPressed: event => bar.scrollByKey(event)

    readonly property ReadingOrder order: ReadingOrder {
        item: list.contentItem
    }

    T.ScrollBar.vertical: ListScroll {
        id: bar
    }
}
