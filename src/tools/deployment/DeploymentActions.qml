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
        width: actions.width
        columns: 4
        spacing: 16

        ActionButton {
            title: qsTr("Export Model")
            icon: "square.and.arrow.up"
            color: Color.blue
        }

        ActionButton {
            title: qsTr("Quantize (4-bit)")
            icon: "arrow.down.to.line"
            color: Color.purple
        }

        ActionButton {
            title: qsTr("Clone Version")
            icon: "doc.on.doc"
            color: Color.orange
        }

        ActionButton {
            title: qsTr("Archive")
            icon: "archivebox"
            color: Color.red
        }
    }
}
