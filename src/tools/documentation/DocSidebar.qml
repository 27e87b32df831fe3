// The column of the documentation: its categories, and below them links to the web.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Rectangle {
    id: sidebar

    required property int selectedCategory

    signal selected(int category)

    component Heading: Label {
        leftPadding: 16
        rightPadding: 16
        topPadding: 20
        bottomPadding: 8
        font: Theme.system(11, Font.Bold)
        color: Theme.textTertiary
        Accessible.role: Accessible.Heading
    }

    color: Theme.sidebarBackground

    Column {
        width: sidebar.width
        spacing: 8

        Heading {
            text: qsTr("DOCUMENTATION")
        }

        Column {
            width: sidebar.width
            spacing: 4

            Repeater {
                id: rows

                model: DocCategories.all

                DocCategoryRow {
                    required property int index
                    required property int modelData

                    width: parent.width
                    // And the other way down.
                    KeyNavigation.up: index > 0 ? rows.itemAt(index - 1) : null
                    category: modelData
                    isSelected: sidebar.selectedCategory === category
                    onClicked: sidebar.selected(category)
                }
            }
        }
    }

    Column {
        anchors.bottom: parent.bottom
        width: sidebar.width
        bottomPadding: 20
        spacing: 8

        Heading {
            text: qsTr("RESOURCES")
        }

        Column {
            width: sidebar.width
            spacing: 4

            ExternalLinkButton {
                width: parent.width
                title: qsTr("Online Docs")
                icon: "globe"
                url: DocAddresses.onlineDocs
            }

            ExternalLinkButton {
                width: parent.width
                title: qsTr("GitHub")
                icon: "chevron.left.forwardslash.chevron.right"
                url: DocAddresses.sourcePage
            }

            ExternalLinkButton {
                width: parent.width
                title: qsTr("Discord")
                icon: "bubble.left.and.bubble.right"
                url: DocAddresses.communityInvite
            }
        }
    }
}
