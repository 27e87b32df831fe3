// The brand on the splash, which grows and fades in.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: brand

    property real entrance: 0

    spacing: 32
    scale: 0.85 + 0.15 * entrance
    opacity: entrance

    Component.onCompleted: entrance = 1

    Behavior on entrance {
        NumberAnimation {
            duration: Motion.entrance
            easing.type: Easing.OutQuad
        }
    }

    Image {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 140
        height: 140
        source: Screen.devicePixelRatio > 1 ? "qrc:/logo/QuillmereLogo-280.png" : "qrc:/logo/QuillmereLogo-140.png"
        smooth: true
        Accessible.ignored: true
    }

    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 12

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Quillmere Studio")
            font: Theme.tracked(Theme.face("Gabarito-Regular", 32, Font.Bold), 0.032)
            color: "white"
        }

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Custom LLMs: Finetune, Train, Deploy")
            font: Theme.face("SpaceGrotesk-Medium", 16)
            color: Theme.textSecondary
        }
    }

    Item {
        anchors.horizontalCenter: parent.horizontalCenter
        width: spinner.width
        height: spinner.height + 20

        Spinner {
            id: spinner

            y: 20
            scale: 0.8
            color: Theme.textSecondary
        }
    }
}
