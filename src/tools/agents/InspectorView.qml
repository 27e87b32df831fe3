// The properties of the selected node. Each edit is told at once; the node that comes back is what is shown.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Rectangle {
    id: inspector

    required property AgentsState agents
    required property real headerHeight
    // While the inspector leaves it still shows the node that it was there for.
    property agentNode node
    // These change only when they are other ones, whatever else of the node does: a drag leaves the fields alone.
    readonly property string title: node.title
    readonly property string description: node.description
    readonly property string model: node.model

    readonly property color lineColor: Color.faded("white", 0.1)

    enabled: agents.hasSelectedNode
    color: Color.hex("161616")
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Inspector")

    Binding on node {
        when: inspector.agents.hasSelectedNode
        value: inspector.agents.selectedNode
        restoreMode: Binding.RestoreNone
    }

    // What lies below is not to be pressed through it.
    MouseArea {
        anchors.fill: parent
    }

    Rectangle {
        id: header

        width: parent.width
        height: inspector.headerHeight
        color: Color.hex("1A1A1A")

        Row {
            x: 16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 8

            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                name: inspector.node.icon
                size: 16
                color: inspector.node.color
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: inspector.node.label
                font: Theme.system(14, Font.Bold)
                color: Color.gray
                Accessible.role: Accessible.Heading
            }
        }
    }

    Divider {
        id: divider

        anchors.top: header.bottom
        width: parent.width
        color: inspector.lineColor
    }

    ScrollArea {
        anchors.top: divider.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: fields.height
        Accessible.name: qsTr("Properties")

        Column {
            id: fields

            width: parent.width
            padding: 16
            spacing: 20

            InspectorField {
                width: parent.width - 32
                label: qsTr("Name")

                RoundedField {
                    width: parent.width
                    label: qsTr("Name")
                    placeholderText: qsTr("Node Name")
                    text: inspector.title
                    onTextEdited: {
                        if (text !== inspector.title) {
                            inspector.agents.setTitle(text);
                        }
                    }
                }
            }

            InspectorField {
                width: parent.width - 32
                label: qsTr("Description")

                Rectangle {
                    width: parent.width
                    height: 60
                    radius: 4
                    color: Color.hex("111111")
                    border.width: description.field.activeFocus ? 2 : 1
                    border.color: description.field.activeFocus ? Theme.focusRing : inspector.lineColor

                    GrowingField {
                        id: description

                        anchors.fill: parent
                        anchors.leftMargin: 8
                        anchors.rightMargin: 8
                        anchors.topMargin: 6
                        anchors.bottomMargin: 6
                        label: qsTr("Description")
                        font: Theme.system(12)
                        text: inspector.description
                        onTextEdited: {
                            if (text !== inspector.description) {
                                inspector.agents.setDescription(text);
                            }
                        }
                    }
                }
            }

            InspectorField {
                width: parent.width - 32
                visible: inspector.node.type === AgentVocabulary.Llm
                label: qsTr("Model")

                RoundedField {
                    width: parent.width - presets.width - 8
                    label: qsTr("Model")
                    placeholderText: qsTr("Enter model name...")
                    text: inspector.model
                    onTextEdited: {
                        if (text !== inspector.model) {
                            inspector.agents.setModel(text);
                        }
                    }
                }

                ModelPresets {
                    id: presets

                    anchors.right: parent.right
                    onPicked: model => inspector.agents.setModel(model)
                }
            }

            InspectorField {
                width: parent.width - 32
                visible: inspector.node.type === AgentVocabulary.Llm
                label: qsTr("Temperature")

                // Stays where it is, whoever moves it.
                Slider {
                    width: parent.width
                    label: qsTr("Temperature")
                    value: 0.7
                }
            }

            InspectorField {
                width: parent.width - 32
                visible: inspector.node.type === AgentVocabulary.Tool
                label: qsTr("Tool Type")

                // Like the temperature: a search, whatever is picked.
                ToolTypePicker {
                    width: parent.width
                    value: "Search"
                }
            }
        }
    }

    Divider {
        vertical: true
        height: parent.height
        color: inspector.lineColor
    }
}
