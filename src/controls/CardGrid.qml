// A scrolling grid of cards in columns of one width, with air between and around them. Tab comes to one card, the arrow keys go from
// there to the others: a card takes part with `activeFocusOnTab: GridView.isCurrentItem || activeFocus`. Where no card can be acted
// upon Tab comes to the grid itself.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls

GridView {
    id: grid

    required property string accessibleName
    required property int columns
    required property real cardHeight
    property bool stepsThroughCards: true
    readonly property real gap: 16
    readonly property real cardWidth: cellWidth - gap

    // For a list that has become another one.
    function startOver() {
        forceLayout();
        currentIndex = count > 0 ? 0 : -1;
        contentY = originY - topMargin;
    }

    // For one that leaves the list, until it is used again: nobody reaches it, and the keyboard stays here.
    function retire(row) {
        Keyboard.leave(row);
        row.visible = false;
    }

    function stepByKey(event: KeyEvent) {
        const steps = {
            [Qt.Key_Left]: moveCurrentIndexLeft,
            [Qt.Key_Right]: moveCurrentIndexRight,
            [Qt.Key_Up]: moveCurrentIndexUp,
            [Qt.Key_Down]: moveCurrentIndexDown
        };
        const before = currentIndex;
        steps[event.key]?.();
        event.accepted = currentIndex !== before;
        if (event.accepted) {
            currentItem.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    // Whole points, so that the edges of the cards are sharp. Each cell brings the gap behind its card.
    cellWidth: Math.floor((Math.max(width, 64 * columns) - 48 + gap) / columns)
    cellHeight: cardHeight + gap
    leftMargin: 24
    topMargin: 24
    bottomMargin: 24 - gap
    clip: true
    interactive: false
    highlightFollowsCurrentItem: false
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    activeFocusOnTab: !stepsThroughCards && bar.scrollable
    // Only what shows is made: a card that Qt 6.4 was making ahead of time is never freed when the view goes meanwhile.
    cacheBuffer: 0
    Accessible.role: Accessible.List
    Accessible.name: accessibleName
    Keys.onPressed: event => {
        bar.scrollByKey(event);
        if (!event.accepted && stepsThroughCards) {
            stepByKey(event);
        }
    }

    // A grid that was empty at first has no current card until it is told one.
    onCountChanged: {
        if (currentIndex < 0 && count > 0) {
            currentIndex = 0;
        }
    }

    readonly property ReadingOrder order: ReadingOrder {
        item: grid.contentItem
    }

    T.ScrollBar.vertical: ListScroll {
        id: bar
    }
}
