// What stands in the middle of a screen that has nothing to show: why, and what can be done about it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: state_

    required property string symbol
    property color symbolColor: Theme.textTertiary
    required property string title
    required property string text
    property string buttonIcon
    // No text, no button.
    property string buttonText
    // What else stands below.
    default property alias more: column.data

    signal buttonClicked

    implicitWidth: column.implicitWidth
    implicitHeight: column.implicitHeight

    Column {
        id: column

        anchors.centerIn: parent
        spacing: 24

        SymbolIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            name: state_.symbol
            size: 64
            color: state_.symbolColor
        }

        Column {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 8

            Label {
                anchors.horizontalCenter: parent.horizontalCenter
                text: state_.title
                font: Theme.headingFont
                color: "white"
                Accessible.role: Accessible.Heading
            }

            Label {
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(implicitWidth, state_.width - 80)
                text: state_.text
                font: Theme.bodyFont
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                // Whatever a failure says of itself, the button stays in the window.
                maximumLineCount: 8
                elide: Text.ElideRight
            }
        }

        PrimaryButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: text.length > 0
            symbol: state_.buttonIcon
            text: state_.buttonText
            onClicked: state_.buttonClicked()
        }
    }
}
