// One node of a workflow. It can be pressed and dragged; its ports are decoration.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

ButtonBase {
    id: node

    required property string identifier
    required property point position
    required property string title
    required property string label
    required property string icon
    required property color color
    required property int status
    required property color statusColor
    required property bool isSelected
    // Of what the node stands in.
    required property real boardScale

    readonly property bool isHovering: hovered
    readonly property real zoom: boardScale * scale

    // Where the pointer is in the window, at each step of a drag.
    signal dragged(place: point)

    x: position.x - width / 2
    y: position.y - height / 2
    width: 236
    height: 60
    scale: isHovering || isSelected ? 1.02 : 1
    radius: 12
    pressedOpacity: 1
    hasFocusRing: false
    accessibleName: qsTr("%1 node %2").arg(label).arg(title)
    Accessible.role: Accessible.ListItem
    Accessible.selectable: true
    Accessible.selected: isSelected

    Behavior on scale {
        NumberAnimation {
            duration: Motion.hover
            easing: Motion.hoverSpring
        }
    }

    background: Item {
        Port {
            zoom: node.zoom
        }

        Plate {
            anchors.fill: body
            anchors.margins: -4
            visible: node.visualFocus
            radius: node.radius + 4
            strokeColor: Theme.focusRing
            strokeWidth: 2
            zoom: node.zoom
        }

        Plate {
            id: body

            anchors.fill: parent
            anchors.leftMargin: 8
            anchors.rightMargin: 8
            radius: node.radius
            color: Color.hex("1A1A1A")
            strokeColor: node.isSelected ? Color.blue : Color.faded("white", node.isHovering ? 0.2 : 0.1)
            strokeWidth: node.isSelected ? 2 : 1
            shadowRadius: 4
            shadowColor: Color.faded("black", 0.3)
            zoom: node.zoom
        }

        Port {
            anchors.right: parent.right
            zoom: node.zoom
        }
    }

    contentItem: Item {
        // The pointer has to go some way before it drags; from there on the node's middle is where the pointer is. Handled here,
        // above of what takes the press.
        PointHandler {
            id: drag

            property bool goesOn: false

            acceptedButtons: Qt.LeftButton
            onPointChanged: {
                const way = point.scenePosition.x - point.scenePressPosition.x;
                const rise = point.scenePosition.y - point.scenePressPosition.y;
                goesOn = active && (goesOn || Math.hypot(way, rise) >= 10);
                if (goesOn) {
                    node.dragged(point.scenePosition);
                }
            }
        }

        Plate {
            id: tile

            x: 20
            y: 12
            width: 36
            height: 36
            radius: 8
            color: Color.faded(node.color, 0.2)
            zoom: node.zoom

            SymbolIcon {
                anchors.centerIn: parent
                name: node.icon
                size: 16
                bold: true
                color: node.color
            }
        }

        Column {
            anchors.left: tile.right
            anchors.leftMargin: 12
            anchors.right: dot.visible ? dot.left : dot.right
            anchors.rightMargin: dot.visible ? 12 : 0
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            Label {
                width: parent.width
                text: node.title
                font: Theme.system(14, Font.DemiBold)
                color: "white"
                elide: Text.ElideRight
                maximumLineCount: 1
                Accessible.ignored: true
            }

            Label {
                text: node.label
                font: Theme.system(10)
                color: Color.gray
                Accessible.ignored: true
            }
        }

        Plate {
            id: dot

            anchors.right: parent.right
            anchors.rightMargin: 20
            anchors.verticalCenter: parent.verticalCenter
            visible: node.status !== AgentVocabulary.Idle
            width: 6
            height: 6
            radius: 3
            color: node.statusColor
            zoom: node.zoom
        }
    }
}
