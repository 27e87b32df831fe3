// How often each of five classes was taken for which: a fixed picture, bright along its diagonal.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FlexibleGrid {
    id: grid

    columns: 5
    spacing: 2
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Confusion matrix")

    Repeater {
        model: 25

        Rectangle {
            id: cell

            required property int index

            readonly property bool onDiagonal: Math.floor(index / grid.columns) === index % grid.columns

            height: 50
            color: Color.faded(Color.blue, onDiagonal ? 0.8 : 0.1)

            Label {
                anchors.centerIn: parent
                text: cell.onDiagonal ? "95" : "2"
                font: Theme.captionFont
                color: "white"
            }
        }
    }
}
