// The canvas itself: the nodes and the connections between them, in one layer that is scaled about its middle.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Tools

Item {
    id: canvas

    required property AgentsState agents

    // Brings the keyboard to a node.
    function focusNode(identifier: string) {
        for (let i = 0; i < nodes.count; ++i) {
            const node = nodes.itemAt(i) as NodeView;
            if (node.identifier === identifier) {
                node.forceActiveFocus(Qt.TabFocusReason);
            }
        }
    }

    // From the node that has the keyboard to another one, in the order in which they came.
    function walk(step: int) {
        for (let i = 0; i < nodes.count; ++i) {
            if (nodes.itemAt(i).activeFocus) {
                nodes.itemAt(i + step)?.forceActiveFocus(Qt.TabFocusReason);
                return;
            }
        }
    }

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Canvas")
    Keys.onLeftPressed: walk(-1)
    Keys.onUpPressed: walk(-1)
    Keys.onRightPressed: walk(1)
    Keys.onDownPressed: walk(1)

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
            id: nodes

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
