// The way to the next step.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    id: button

    implicitWidth: Math.max(120, Math.ceil(parts.implicitWidth) + 24)
    implicitHeight: 40
    text: qsTr("Continue")
    font: Theme.rounded(14, Font.DemiBold)
    labelColor: "white"
    fillColor: enabled ? Color.blue : Color.faded("white", 0.1)
    radius: 10

    contentItem: Item {
        Row {
            id: parts

            anchors.centerIn: parent
            spacing: button.spacing

            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: button.text
                font: button.font
                color: button.labelColor
                Accessible.ignored: true
            }

            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                name: "arrow.right"
                size: button.font.pixelSize
                color: button.labelColor
            }
        }
    }
}
