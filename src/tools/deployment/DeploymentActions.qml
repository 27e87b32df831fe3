// What could be done with a version.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: actions

    readonly property real buttonWidth: (width - 3 * row.spacing) / 4

    spacing: 16

    Label {
        text: qsTr("DEPLOYMENT ACTIONS")
        font: Theme.system(12, Font.Bold)
        color: Color.gray
        Accessible.role: Accessible.Heading
    }

    Row {
        id: row

        spacing: 16

        ActionButton {
            width: actions.buttonWidth
            title: qsTr("Export Model")
            icon: "square.and.arrow.up"
            color: Color.blue
        }

        ActionButton {
            width: actions.buttonWidth
            title: qsTr("Quantize (4-bit)")
            icon: "arrow.down.to.line"
            color: Color.purple
        }

        ActionButton {
            width: actions.buttonWidth
            title: qsTr("Clone Version")
            icon: "doc.on.doc"
            color: Color.orange
        }

        ActionButton {
            width: actions.buttonWidth
            title: qsTr("Archive")
            icon: "archivebox"
            color: Color.red
        }
    }
}
