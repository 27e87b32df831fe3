// What the columns of the model registry hold.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Row {
    id: header

    leftPadding: 16
    rightPadding: 16
    topPadding: 12
    bottomPadding: 12
    spacing: 8

    component Title: Label {
        width: 80
        font: Theme.system(11, Font.DemiBold)
        color: Color.gray
        elide: Text.ElideRight
        Accessible.role: Accessible.ColumnHeader
    }

    Title {
        text: qsTr("VERSION")
    }

    Title {
        text: qsTr("STATUS")
    }

    Title {
        text: qsTr("ACCURACY")
    }

    Title {
        text: qsTr("SIZE")
    }

    Title {
        width: 120
        text: qsTr("CREATED")
    }
}
