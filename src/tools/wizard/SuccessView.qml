// What is said once the pause of the start is over.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: view

    signal done

    implicitWidth: column.implicitWidth + 80
    implicitHeight: column.implicitHeight + 80
    focus: true

    Column {
        id: column

        anchors.centerIn: parent
        spacing: 24

        SymbolIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "checkmark.circle.fill"
            size: 64
            color: Color.green
        }

        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 8

            Label {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("Training Started!")
                font: Theme.rounded(24, Font.Bold)
                color: "white"
                Accessible.role: Accessible.Heading
            }

            Label {
                anchors.horizontalCenter: parent.horizontalCenter
                text: qsTr("You can monitor progress in the Dashboard.")
                font: Theme.rounded(14)
                color: Color.gray
            }
        }

        ProminentButton {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Done")
            font: Theme.rounded(13)
            focus: true
            onClicked: view.done()
        }
    }
}
