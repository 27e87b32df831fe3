// A card that stands for one choice out of several: what it is, and a mark while it is the chosen one. It grows a little under the
// pointer.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    id: card

    required property bool isSelected
    required property string title
    required property string description
    // Without an icon the texts begin at the edge.
    property string icon
    property color color: Color.blue
    // A word beside the title.
    property string badge

    property real hoverScale: 1.01
    property real iconSize: 18
    property real iconWidth: 32
    property real titleSize: 14
    property real textSpacing: 4

    readonly property bool isHovering: hovered

    padding: 16
    spacing: 12
    radius: 16
    pressedOpacity: 0.7
    scale: isHovering ? hoverScale : 1
    accessibleName: title
    Accessible.role: Accessible.RadioButton
    Accessible.description: badge.length > 0 ? badge + ". " + description : description
    Accessible.checkable: true
    Accessible.checked: isSelected
    Accessible.onToggleAction: press()

    Behavior on scale {
        NumberAnimation {
            duration: Motion.hover
            easing: Motion.hoverSpring
        }
    }

    background: GrowingPanel {
        grown: card.scale
        radius: card.radius
        color: Theme.ultraThinMaterial
        strokeWidth: card.isSelected ? 2 : 1
        strokeColor: card.isSelected ? Color.blue : Color.faded("white", card.isHovering ? 0.1 : 0.05)
    }

    contentItem: Row {
        spacing: card.spacing

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            visible: card.icon.length > 0
            width: card.iconWidth
            name: card.icon
            size: card.iconSize
            color: card.color
        }

        Column {
            anchors.verticalCenter: parent.verticalCenter
            // The mark of the chosen one stands at the end.
            width: parent.width - x - (card.isSelected ? card.spacing + 24 : 0)
            spacing: card.textSpacing

            Row {
                spacing: 8

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: card.title
                    font: Theme.rounded(card.titleSize, Font.DemiBold)
                    color: "white"
                    Accessible.ignored: true
                }

                Badge {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: card.badge.length > 0
                    text: card.badge
                    font: Theme.rounded(9, Font.Bold)
                    tint: "black"
                    color: Color.yellow
                    horizontalPadding: 6
                    verticalPadding: 2
                    toldElsewhere: true
                }
            }

            Label {
                width: parent.width
                text: card.description
                font: Theme.rounded(12)
                color: Color.gray
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            visible: card.isSelected
            width: 24
            name: "checkmark.circle.fill"
            size: 18
            color: Color.blue
        }
    }
}
