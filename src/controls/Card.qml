// A panel with rounded corners and a thin stroke; what stands on it keeps off its edge by itself.
import QtQuick
import Quillmere.Theme

Rectangle {
    id: card

    property color strokeColor: Theme.border
    // The stroke while the pointer is over the card.
    property color hoverStrokeColor: strokeColor
    readonly property bool hovered: hover.hovered

    radius: 12
    color: Theme.surface
    border.width: 1
    border.color: hovered ? hoverStrokeColor : strokeColor

    HoverHandler {
        id: hover
    }
}
