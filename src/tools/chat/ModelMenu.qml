// The name of the model that is talked to, and the others to choose from.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

PlainButton {
    id: button

    required property string selectedModel
    required property list<string> models

    signal selected(string model)

    text: selectedModel
    horizontalPadding: 16
    verticalPadding: 8
    spacing: 8
    radius: 8
    font: Theme.system(13, Font.Medium)
    fillColor: Color.faded(Color.blue, 0.1)
    Accessible.role: Accessible.ButtonMenu
    Accessible.name: qsTr("Model: %1").arg(selectedModel)
    onClicked: menu.toggle()

    contentItem: Row {
        spacing: button.spacing

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: "brain.head.profile"
            size: 14
            color: button.labelColor
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: button.text
            font: button.font
            color: button.labelColor
            Accessible.ignored: true
        }

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron.down"
            size: 10
            color: button.labelColor
        }
    }

    Menu {
        id: menu

        x: button.width - width

        Repeater {
            model: button.models

            MenuItem {
                required property string modelData

                text: modelData
                checkable: true
                // Choosing the chosen one again does not take its mark away.
                autoExclusive: true
                checked: button.selectedModel === modelData
                onTriggered: button.selected(modelData)
            }
        }
    }
}
