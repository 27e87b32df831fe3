// What could be done with a version.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: actions

    spacing: 16

    Label {
        text: qsTr("DEPLOYMENT ACTIONS")
        font: Theme.system(12, Font.Bold)
        color: Color.gray
        Accessible.role: Accessible.Heading
    }

    FlexibleGrid {
        id: row

        width: actions.width
        columns: 4
        spacing: 16

        ActionButton {
            width: row.widthAt(0)
            title: qsTr("Export Model")
            icon: "square.and.arrow.up"
            color: Color.blue
        }

        ActionButton {
            width: row.widthAt(1)
            title: qsTr("Quantize (4-bit)")
            icon: "arrow.down.to.line"
            color: Color.purple
        }

        ActionButton {
            width: row.widthAt(2)
            title: qsTr("Clone Version")
            icon: "doc.on.doc"
            color: Color.orange
        }

        ActionButton {
            width: row.widthAt(3)
            title: qsTr("Archive")
            icon: "archivebox"
            color: Color.red
        }
    }
}
