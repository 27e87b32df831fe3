// How a new account sets its authenticator up: a QR code to scan, or the secret to type.
import QtQuick
import Quillmere.Controls
import Quillmere.Identity
import Quillmere.Platform
import Quillmere.Theme

Column {
    id: setup

    required property LoginViewModel viewModel
    readonly property string secret: viewModel.totpSecret

    spacing: 8

    Label {
        text: qsTr("Set up Authenticator")
        font: Theme.system(12, Font.Medium)
        color: Color.gray
    }

    Rectangle {
        width: 140
        height: 140
        radius: 8
        color: "white"
        anchors.horizontalCenter: parent.horizontalCenter

        QrCode {
            id: qrCode

            anchors.fill: parent
            imageData: setup.viewModel.qrCodeData
            visible: isImage
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("QR code for your authenticator app")
        }

        Spinner {
            anchors.centerIn: parent
            color: Color.gray
            visible: !qrCode.isImage
        }
    }

    Label {
        text: qsTr("Scan with your authenticator app")
        font: Theme.system(11)
        color: Color.gray
        anchors.horizontalCenter: parent.horizontalCenter
    }

    Label {
        visible: setup.secret.length > 0
        text: qsTr("Or enter manually:")
        font: Theme.system(10)
        color: Color.faded(Color.gray, 0.7)
        anchors.horizontalCenter: parent.horizontalCenter
    }

    Row {
        visible: setup.secret.length > 0
        spacing: 6
        anchors.horizontalCenter: parent.horizontalCenter

        Rectangle {
            width: secretText.width + 12
            height: secretText.height + 12
            radius: 4
            color: Color.faded("white", 0.05)

            Label {
                id: secretText

                x: 6
                y: 6
                width: Math.min(implicitWidth, setup.width - 12 - 30)
                text: setup.secret
                font: Theme.monospaced(10)
                color: Color.gray
                wrapMode: Text.WrapAnywhere
            }
        }

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "doc.on.doc"
            size: 10
            color: Color.gray
            label: qsTr("Copy the secret")
            onClicked: Pasteboard.setString(setup.secret)
        }
    }
}
