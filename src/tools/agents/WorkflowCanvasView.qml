// The canvas itself: the nodes and the connections between them, in one layer that is scaled about its middle.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Tools

Item {
    id: canvas

    required property AgentsState agents

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Canvas")

    MouseArea {
        anchors.fill: parent
        onPressed: forceActiveFocus(Qt.MouseFocusReason)
        onClicked: canvas.agents.selectNothing()
    }

    ConnectionLayer {
        anchors.fill: parent
        agents: canvas.agents
    }

    Item {
        id: board

        anchors.fill: parent
        scale: canvas.agents.scale

        Repeater {
            model: canvas.agents.nodes

            NodeView {
                id: node

                isSelected: canvas.agents.selectedNodeId === identifier
                boardScale: board.scale
                onClicked: canvas.agents.select(identifier)
                onDragged: place => canvas.agents.drag(identifier, board.mapFromItem(null, place))
            }
        }
    }
}
