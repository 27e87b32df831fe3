// The edges and corners by which a window without a frame is resized. They lie inside the window, over everything else.
pragma ComponentBehavior: Bound

import QtQuick

Item {
    id: edges

    required property Window window
    readonly property list<int> all: [
        Qt.TopEdge, Qt.BottomEdge, Qt.LeftEdge, Qt.RightEdge,
        Qt.TopEdge | Qt.LeftEdge, Qt.TopEdge | Qt.RightEdge, Qt.BottomEdge | Qt.LeftEdge, Qt.BottomEdge | Qt.RightEdge
    ]

    visible: window.visibility === Window.Windowed
    z: 1000003

    Repeater {
        model: edges.all

        MouseArea {
            id: area

            required property int modelData
            readonly property bool atLeft: (modelData & Qt.LeftEdge) !== 0
            readonly property bool atRight: (modelData & Qt.RightEdge) !== 0
            readonly property bool atTop: (modelData & Qt.TopEdge) !== 0
            readonly property bool atBottom: (modelData & Qt.BottomEdge) !== 0
            readonly property bool isCorner: (atLeft || atRight) && (atTop || atBottom)
            // Corners reach a little further in than edges.
            readonly property real reach: isCorner ? 8 : 4

            x: atRight ? edges.width - reach : 0
            y: atBottom ? edges.height - reach : 0
            width: atLeft || atRight ? reach : edges.width
            height: atTop || atBottom ? reach : edges.height
            cursorShape: isCorner ? (atLeft === atTop ? Qt.SizeFDiagCursor : Qt.SizeBDiagCursor)
                : atLeft || atRight ? Qt.SizeHorCursor : Qt.SizeVerCursor
            onPressed: edges.window.startSystemResize(modelData)
        }
    }
}
