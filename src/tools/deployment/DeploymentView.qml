// The deployment destination, and a tab of the analytics: a registry of versions, what could be done with them, and a playground.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Rectangle {
    id: view

    color: Theme.background

    DeploymentState {
        id: deployment
    }

    ScrollArea {
        anchors.left: parent.left
        anchors.right: playground.left
        height: view.height
        contentHeight: page.height + 48
        Accessible.name: qsTr("Deployment")

        Column {
            id: page

            x: 24
            y: 24
            width: parent.width - 48
            spacing: 24

            Item {
                width: parent.width
                height: newDeployment.height

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("MODEL REGISTRY")
                    font: Theme.system(18, Font.Bold)
                    color: "white"
                    Accessible.role: Accessible.Heading
                }

                ProminentButton {
                    id: newDeployment

                    anchors.right: parent.right
                    // In whole points, as all below it: the software renderer loses lines that lie between two.
                    width: Math.ceil(implicitWidth)
                    height: Math.ceil(implicitHeight)
                    symbol: "plus"
                    text: qsTr("New Deployment")
                }
            }

            ModelRegistry {
                width: parent.width
                selectedModel: deployment.selectedModel
                onSelected: version => deployment.selectedModel = version
            }

            DeploymentActions {
                width: parent.width
            }
        }
    }

    InferencePlayground {
        id: playground

        anchors.right: parent.right
        width: 300
        height: view.height
        deployment: deployment
    }
}
