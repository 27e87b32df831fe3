// The kind of a tool, by a menu. Its owner says which one it is.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: picker

    // "Search" or "Calc".
    required property string value

    signal picked(value: string)

    implicitHeight: button.implicitHeight

    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Type")
        font: Theme.system(13)
        color: Theme.label
        Accessible.ignored: true
    }

    BorderedButton {
        id: button

        anchors.right: parent.right
        text: picker.value === "Calc" ? calculator.text : search.text
        accessibleName: qsTr("Type: %1").arg(text)
        Accessible.role: Accessible.ButtonMenu
        onClicked: menu.toggle()

        contentItem: Row {
            spacing: button.spacing

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: button.text
                font: button.font
                color: button.labelColor
                Accessible.ignored: true
            }

            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                name: "chevron.up.chevron.down"
                size: 11
                color: button.labelColor
            }
        }

        Menu {
            id: menu

            // A row checks itself when it is pressed; which one holds is not for it to say.
            MenuItem {
                id: search

                checkable: true
                checked: picker.value === "Search"
                text: qsTr("Google Search")
                onToggled: checked = Qt.binding(() => picker.value === "Search")
                onTriggered: picker.picked("Search")
            }
            MenuItem {
                id: calculator

                checkable: true
                checked: picker.value === "Calc"
                text: qsTr("Calculator")
                onToggled: checked = Qt.binding(() => picker.value === "Calc")
                onTriggered: picker.picked("Calc")
            }
        }
    }
}
