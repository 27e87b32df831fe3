// The palette: a button and its menu of what can be added. An entry stands for its section's type of node and nothing more.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

BorderedButton {
    id: button

    signal picked(int type)

    symbol: "plus"
    text: qsTr("Add Node")
    tint: Color.blue
    Accessible.role: Accessible.ButtonMenu
    onClicked: menu.toggle()

    Menu {
        id: menu

        // The button stands at the bottom of the screen.
        y: -height - 4

        MenuSection {
            text: qsTr("Triggers")
        }
        MenuItem {
            symbol: "bolt.fill"
            text: qsTr("Webhook")
            onTriggered: button.picked(AgentVocabulary.Trigger)
        }
        MenuItem {
            symbol: "clock.fill"
            text: qsTr("Schedule")
            onTriggered: button.picked(AgentVocabulary.Trigger)
        }

        MenuSection {
            text: qsTr("Logic")
        }
        MenuItem {
            symbol: "arrow.triangle.branch"
            text: qsTr("Router")
            onTriggered: button.picked(AgentVocabulary.Logic)
        }
        MenuItem {
            symbol: "diamond.fill"
            text: qsTr("Condition")
            onTriggered: button.picked(AgentVocabulary.Logic)
        }

        MenuSection {
            text: qsTr("AI Models")
        }
        MenuItem {
            symbol: "brain.head.profile"
            text: qsTr("Chat Model")
            onTriggered: button.picked(AgentVocabulary.Llm)
        }
        MenuItem {
            symbol: "squareshape.split.3x3"
            text: qsTr("Embedding")
            onTriggered: button.picked(AgentVocabulary.Llm)
        }

        MenuSection {
            text: qsTr("Tools")
        }
        MenuItem {
            symbol: "magnifyingglass"
            text: qsTr("Search")
            onTriggered: button.picked(AgentVocabulary.Tool)
        }
        MenuItem {
            symbol: "network"
            text: qsTr("API Call")
            onTriggered: button.picked(AgentVocabulary.Tool)
        }

        MenuSection {
            text: qsTr("Data")
        }
        MenuItem {
            symbol: "cylinder.fill"
            text: qsTr("Vector Store")
            onTriggered: button.picked(AgentVocabulary.Data)
        }
    }
}
