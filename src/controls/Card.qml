// A panel that things stand on.
import QtQuick
import Quillmere.Theme

Rectangle {
    id: card

    property alias strokeColor: card.border.color

    radius: 12
    color: Theme.surface
    border.width: 1
    border.color: Theme.border
}
