// A menu and a popover, open below their buttons.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: page

    color: Theme.background

    BorderedButton {
        x: 120
        y: 100
        symbol: "plus"
        text: "Add Node"
        onClicked: menu.toggle()

        Menu {
            id: menu

            visible: true

            MenuSection {
                text: "Triggers"
            }
            MenuItem {
                symbol: "bolt.fill"
                text: "Webhook"
            }
            MenuItem {
                objectName: "hovered"
                symbol: "clock.fill"
                text: "Schedule"
            }
            MenuDivider {}
            MenuSection {
                text: "Tools"
            }
            MenuItem {
                symbol: "magnifyingglass"
                text: "Search & Replace"
            }
            MenuItem {
                enabled: false
                symbol: "network"
                text: "API Call"
            }
            MenuDivider {}
            MenuItem {
                checkable: true
                checked: true
                text: "Google Search"
            }
            MenuItem {
                checkable: true
                text: "Calculator"
            }
        }
    }

    IconButton {
        x: 700
        y: 100
        symbol: "cpu"
        label: "System monitor"
        color: Color.cyan

        Popover {
            visible: true
            contentWidth: 320
            contentHeight: 280

            Label {
                anchors.centerIn: parent
                text: "320 by 280"
                color: Theme.textSecondary
            }
        }
    }
}
