// The screen of a signed-out user: the brand beside a form that changes with the step of the sign-in.
import QtQuick
import Quillmere.Controls
import Quillmere.Identity
import Quillmere.Platform
import Quillmere.Theme

Rectangle {
    id: view

    color: Theme.background
    implicitWidth: 800
    implicitHeight: 600

    LoginViewModel {
        id: login
    }

    Rectangle {
        width: Math.floor(view.width / 2)
        height: view.height
        color: Theme.sidebarBackground

        Column {
            anchors.centerIn: parent
            spacing: 32

            Image {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 100
                height: 100
                source: Screen.devicePixelRatio > 1 ? "qrc:/logo/QuillmereLogo-200.png" : "qrc:/logo/QuillmereLogo-100.png"
                Accessible.ignored: true
            }

            Column {
                anchors.horizontalCenter: parent.horizontalCenter
                spacing: 12

                Label {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: qsTr("Quillmere Studio")
                    font: Theme.face("Gabarito", 28, Font.Bold)
                    color: "white"
                }

                Label {
                    anchors.horizontalCenter: parent.horizontalCenter
                    text: qsTr("Custom LLMs: Finetune, Train, Deploy")
                    font: Theme.system(14)
                    color: Theme.textSecondary
                }
            }

            Column {
                anchors.horizontalCenter: parent.horizontalCenter
                topPadding: 40
                spacing: 16

                FeatureRow {
                    icon: "cpu.fill"
                    text: qsTr("Local & Cloud Training")
                }

                FeatureRow {
                    icon: "lock.shield.fill"
                    text: qsTr("Secure Authentication")
                }

                FeatureRow {
                    icon: "arrow.triangle.2.circlepath"
                    text: qsTr("Seamless Model Sync")
                }
            }
        }
    }

    Item {
        id: formColumn

        anchors.right: parent.right
        width: Math.ceil(view.width / 2)
        height: view.height

        Column {
            anchors.centerIn: parent
            width: 280
            spacing: 24

            Item {
                width: parent.width
                height: emailStep.isCurrent ? emailStep.height : authenticatorStep.height

                EmailStep {
                    id: emailStep

                    width: parent.width
                    viewModel: login
                    isCurrent: login.loginStep === LoginViewModel.Email
                }

                AuthenticatorStep {
                    id: authenticatorStep

                    width: parent.width
                    viewModel: login
                    isCurrent: login.loginStep === LoginViewModel.Authenticator
                }
            }

            BrowserPanel {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: BrowserSession.waiting
                // With the keyboard in it, that goes back to the step.
                onVisibleChanged: {
                    if (!visible && Keyboard.leave(this)) {
                        (emailStep.isCurrent ? emailStep : authenticatorStep).initialFocus.forceActiveFocus();
                    }
                }
            }

            FailureLine {
                width: 280
                visible: login.hasErrorMessage
                text: login.errorMessage
            }
        }
    }
}
