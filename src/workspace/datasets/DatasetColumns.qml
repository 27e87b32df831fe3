// The columns of the table, the same in its heading and its rows: the name takes what the others leave.
import QtQuick

Item {
    default property alias cells: row.data
    readonly property real nameWidth: Math.max(0, row.width - purposeWidth - sizeWidth - uploadedWidth - deleteWidth)
    readonly property real purposeWidth: 120
    readonly property real sizeWidth: 100
    readonly property real uploadedWidth: 140
    readonly property real deleteWidth: 60

    Row {
        id: row

        x: 20
        width: parent.width - 40
        height: parent.height
    }
}
