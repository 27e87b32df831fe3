// The edges and corners by which the frameless window is resized.
pragma ComponentBehavior: Bound

import QtQuick

Item {
    id: edges

    required property Window window

    // Points from the window's edge that count as the edge.
    readonly property real grip: 5

    visible: window.visibility === Window.Windowed

    component Edge: MouseArea {
        required property int side

        cursorShape: side === Qt.LeftEdge || side === Qt.RightEdge ? Qt.SizeHorCursor
            : side === Qt.TopEdge || side === Qt.BottomEdge ? Qt.SizeVerCursor
            : side === (Qt.TopEdge | Qt.LeftEdge) || side === (Qt.BottomEdge | Qt.RightEdge) ? Qt.SizeFDiagCursor
            : Qt.SizeBDiagCursor
        onPressed: edges.window.startSystemResize(side)
    }

    Edge {
        side: Qt.LeftEdge
        width: edges.grip
        height: parent.height
    }

    Edge {
        side: Qt.RightEdge
        anchors.right: parent.right
        width: edges.grip
        height: parent.height
    }

    Edge {
        side: Qt.TopEdge
        width: parent.width
        height: edges.grip
    }

    Edge {
        side: Qt.BottomEdge
        anchors.bottom: parent.bottom
        width: parent.width
        height: edges.grip
    }

    Edge {
        side: Qt.TopEdge | Qt.LeftEdge
        width: 2 * edges.grip
        height: width
    }

    Edge {
        side: Qt.TopEdge | Qt.RightEdge
        anchors.right: parent.right
        width: 2 * edges.grip
        height: width
    }

    Edge {
        side: Qt.BottomEdge | Qt.LeftEdge
        anchors.bottom: parent.bottom
        width: 2 * edges.grip
        height: width
    }

    Edge {
        side: Qt.BottomEdge | Qt.RightEdge
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        width: 2 * edges.grip
        height: width
    }
}
