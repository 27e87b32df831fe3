// The sidebar: the brand, a row for each destination that has one, and who is signed in.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.App
import Quillmere.Controls
import Quillmere.Identity
import Quillmere.Theme

Rectangle {
    id: view

    required property int selection

    signal selected(int item)

    color: Theme.sidebarBackground
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Sidebar")

    Row {
        id: brand

        x: 20
        y: 24
        spacing: 12

        Image {
            anchors.verticalCenter: parent.verticalCenter
            width: 24
            height: 24
            source: "qrc:/logo/QuillmereLogo-48.png"
            smooth: true
            Accessible.ignored: true
        }

        Column {
            anchors.verticalCenter: parent.verticalCenter

            Label {
                text: qsTr("Quillmere")
                font: Theme.tracked(Theme.face("Gabarito-Regular", 15, Font.Bold), 0.015)
                color: "white"
            }

            Label {
                text: qsTr("STUDIO")
                font: Theme.tracked(Theme.system(10, Font.Medium), 1)
                color: Theme.textSecondary
            }
        }
    }

    ScrollArea {
        id: rows

        anchors.top: brand.bottom
        anchors.topMargin: 24
        anchors.bottom: footer.top
        width: view.width
        contentHeight: groups.height

        Column {
            id: groups

            x: 12
            width: rows.width - 24

            Repeater {
                id: mainRows

                model: SidebarItem.mainGroup

                SidebarRow {
                    required property int index
                    required property int modelData

                    width: groups.width
                    // And the other way down.
                    KeyNavigation.up: index > 0 ? mainRows.itemAt(index - 1) : null
                    item: modelData
                    selection: view.selection
                    onClicked: view.selected(item)
                }
            }

            Item {
                width: 1
                height: 24
            }

            Label {
                leftPadding: 12
                bottomPadding: 8
                text: qsTr("SYSTEM")
                font: Theme.system(11, Font.Bold)
                color: Theme.textTertiary
            }

            Repeater {
                id: systemRows

                model: SidebarItem.systemGroup

                SidebarRow {
                    required property int index
                    required property int modelData

                    width: groups.width
                    KeyNavigation.up: index > 0 ? systemRows.itemAt(index - 1) : mainRows.itemAt(mainRows.count - 1)
                    item: modelData
                    selection: view.selection
                    onClicked: view.selected(item)
                }
            }
        }
    }

    Rectangle {
        id: footer

        anchors.bottom: parent.bottom
        width: view.width
        height: 68
        color: Color.faded(Theme.background, 0.5)

        Rectangle {
            id: avatar

            x: 16
            y: 16
            width: 36
            height: 36
            radius: 18
            color: Theme.border

            SymbolIcon {
                anchors.centerIn: parent
                name: "person.2.fill"
                size: 14
                color: Theme.textSecondary
            }
        }

        Column {
            anchors.left: avatar.right
            anchors.leftMargin: 12
            anchors.right: parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            Label {
                width: parent.width
                text: qsTr("Pro Workspace")
                font: Theme.system(13, Font.Medium)
                color: "white"
                elide: Text.ElideRight
            }

            Label {
                width: parent.width
                text: AuthManager.hasCurrentUser ? AuthManager.currentUserEmail : qsTr("Guest")
                font: Theme.system(11)
                color: Theme.textTertiary
                elide: Text.ElideRight
            }
        }
    }
}
