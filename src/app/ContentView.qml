// What a signed-in user sees: the sidebar and one destination.
import QtQuick
import Quillmere.App

Rectangle {
    id: view

    property int selection: SidebarItem.Dashboard

    color: "black"

    SidebarView {
        id: sidebar

        width: 220
        height: view.height
        selection: view.selection
        onSelected: item => view.selection = item
    }

    Loader {
        id: destination

        anchors.left: sidebar.right
        anchors.right: view.right
        // The region of the window's own marks stays free.
        anchors.top: view.top
        anchors.topMargin: 40
        anchors.bottom: view.bottom
        source: SidebarItem.view(view.selection)
    }

    MouseArea {
        id: edge

        x: sidebar.width - 3
        width: 6
        height: view.height
        cursorShape: Qt.SplitHCursor
        onPositionChanged: mouse => sidebar.width = Math.max(200, Math.min(260, edge.x + mouse.x))
    }
}
