// The versions of the model, one of them highlighted.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Card {
    id: registry

    required property string selectedModel

    signal selected(string version)

    implicitHeight: rows.implicitHeight + 2
    radius: 8
    color: Color.hex("1A1A1A")
    strokeColor: Color.hex("333333")
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Model Registry")

    Column {
        id: rows

        x: 1
        y: 1
        width: registry.width - 2

        RegistryHeader {}

        Divider {
            width: parent.width
            color: registry.strokeColor
        }

        DeploymentRow {
            width: parent.width
            version: "v1.2.0"
            status: DeploymentVocabulary.ModelStatus.Active
            acc: "94.2%"
            size: qsTr("7.2GB")
            date: qsTr("2 mins ago")
            isSelected: registry.selectedModel === version
            onClicked: registry.selected(version)
        }

        Divider {
            width: parent.width
            color: registry.strokeColor
        }

        DeploymentRow {
            width: parent.width
            version: "v1.1.5"
            status: DeploymentVocabulary.ModelStatus.Ready
            acc: "93.8%"
            size: qsTr("7.2GB")
            date: qsTr("2 days ago")
            isSelected: registry.selectedModel === version
            onClicked: registry.selected(version)
        }

        Divider {
            width: parent.width
            color: registry.strokeColor
        }

        DeploymentRow {
            width: parent.width
            version: "v1.0.0"
            status: DeploymentVocabulary.ModelStatus.Archived
            acc: "91.5%"
            size: qsTr("7.2GB")
            date: qsTr("1 week ago")
            isSelected: registry.selectedModel === version
            cornerRadius: registry.radius - 1
            onClicked: registry.selected(version)
        }
    }
}
