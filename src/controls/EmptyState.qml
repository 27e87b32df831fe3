// What stands in the middle of a screen that has nothing to show.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: state_

    required property string symbol
    required property string title
    required property string text
    property color tint: Theme.textTertiary
    property string buttonSymbol
    property string buttonLabel

    signal buttonClicked

    Column {
        anchors.centerIn: parent
        width: state_.width
        spacing: 24

        SymbolIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            name: state_.symbol
            size: 64
            color: state_.tint
        }

        Column {
            width: parent.width
            spacing: 8

            Label {
                width: parent.width
                text: state_.title
                font: Theme.headingFont
                color: "white"
                horizontalAlignment: Text.AlignHCenter
            }

            Label {
                width: parent.width
                leftPadding: 40
                rightPadding: 40
                text: state_.text
                font: Theme.bodyFont
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }

        PrimaryButton {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: state_.buttonLabel.length > 0
            symbol: state_.buttonSymbol
            label: state_.buttonLabel
            onClicked: state_.buttonClicked()
        }
    }
}
