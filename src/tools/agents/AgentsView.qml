// The Agents destination: a canvas of typed nodes, and an inspector for the one that is selected.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Rectangle {
    id: view

    // How much of the inspector is in view.
    property real inspection: agents.hasSelectedNode ? 1 : 0

    readonly property color lineColor: Color.faded("white", 0.1)
    // Nothing is blurred here: so that nodes below the bars do not disturb what stands on them, little of these comes through.
    readonly property color barColor: Qt.tint(Color.faded(color, 0.9), Theme.ultraThinMaterial)

    color: Color.hex("111111")
    implicitWidth: 1000
    implicitHeight: 700
    clip: true

    // Lets go of the selected node; the keyboard is at it then, and not in an inspector that is gone.
    Keys.onEscapePressed: event => {
        event.accepted = agents.hasSelectedNode;
        if (event.accepted) {
            canvas.focusNode(agents.selectedNodeId);
            agents.selectNothing();
        }
    }

    Behavior on inspection {
        NumberAnimation {
            duration: Motion.standard
            easing.type: Easing.InOutQuad
        }
    }

    AgentsState {
        id: agents
    }

    Item {
        id: workArea

        width: Math.round(inspector.x)
        height: view.height
        clip: true

        // As wide as the screen, so that it is not painted anew while the inspector comes and goes.
        GridBackground {
            width: view.width
            height: view.height
            gridScale: agents.scale
        }

        // The bars come before the nodes by the keyboard and lie over them on the screen.
        CanvasBar {
            id: topBar

            z: 1
            width: parent.width
            height: Math.max(title.implicitHeight, buttons.implicitHeight) + 2 * 16 + 1
            color: view.barColor

            Label {
                id: title

                x: 16
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, buttons.x - x - 8)
                text: qsTr("Agent Workflow")
                font: Theme.system(16, Font.Bold)
                color: "white"
                elide: Text.ElideRight
                Accessible.role: Accessible.Heading
            }

            Row {
                id: buttons

                anchors.right: parent.right
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                spacing: 8

                ProminentButton {
                    symbol: agents.isRunning ? "stop.fill" : "play.fill"
                    text: agents.isRunning ? qsTr("Running...") : qsTr("Run Agent")
                    font: Theme.system(12, Font.DemiBold)
                    tint: agents.isRunning ? Color.red : Color.green
                    onClicked: agents.toggleRun()
                }

                // Does nothing when it is pressed.
                BorderedButton {
                    symbol: "ladybug.fill"
                    text: qsTr("Debug")
                    font: Theme.system(12)
                }
            }

            Divider {
                anchors.bottom: parent.bottom
                width: parent.width
                color: view.lineColor
            }
        }

        WorkflowCanvasView {
            id: canvas

            anchors.fill: parent
            agents: agents
        }

        CanvasBar {
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 20
            width: tools.width + 20
            height: tools.height + 20
            radius: 12
            color: view.barColor

            Row {
                id: tools

                anchors.centerIn: parent
                spacing: 8

                IconButton {
                    anchors.verticalCenter: parent.verticalCenter
                    symbol: "minus.magnifyingglass"
                    label: qsTr("Zoom Out")
                    onClicked: agents.zoomOut()
                }

                IconButton {
                    anchors.verticalCenter: parent.verticalCenter
                    symbol: "plus.magnifyingglass"
                    label: qsTr("Zoom In")
                    onClicked: agents.zoomIn()
                }

                Divider {
                    anchors.verticalCenter: parent.verticalCenter
                    vertical: true
                    height: 20
                    color: view.lineColor
                }

                AddNodeMenu {
                    anchors.verticalCenter: parent.verticalCenter
                    onPicked: type => agents.addNode(type)
                }
            }
        }
    }

    // From the first node on that is selected.
    Loader {
        id: inspector

        readonly property bool isWanted: agents.hasSelectedNode

        x: view.width - width * view.inspection
        width: 300
        height: view.height
        visible: view.inspection > 0
        onIsWantedChanged: {
            if (status === Loader.Null) {
                // Its line goes on where that of the bar ends.
                setSource("InspectorView.qml", {agents: agents, headerHeight: Qt.binding(() => topBar.height - 1)});
            }
        }
    }
}
