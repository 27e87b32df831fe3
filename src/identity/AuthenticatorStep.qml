// Second step of the sign-in: the authenticator's code, and for a new account how to set the authenticator up.
import QtQuick
import Quillmere.Controls
import Quillmere.Identity
import Quillmere.Theme

LoginStepColumn {
    id: step

    required property LoginViewModel viewModel

    initialFocus: field

    FormHeader {
        title: qsTr("Enter Code")
        subtitle: qsTr("Enter your authenticator code")
    }

    Column {
        width: parent.width
        spacing: 8

        PlainButton {
            text: qsTr("← Back to Email")
            font: Theme.system(12)
            onClicked: step.viewModel.loginStep = LoginViewModel.Email
        }

        AuthenticatorSetup {
            width: parent.width
            visible: step.viewModel.isNewUser
            viewModel: step.viewModel
        }

        Label {
            text: qsTr("Authenticator Code")
            font: Theme.system(12, Font.Medium)
            color: Color.gray
        }

        LoginField {
            id: field

            width: parent.width
            label: qsTr("Authenticator Code")
            placeholder: "123456"
            font: Theme.monospaced(20, Font.Medium)
            value: step.viewModel.authenticatorCode
            onTyped: text => step.viewModel.authenticatorCode = text
            onAccepted: step.viewModel.submitCode()
        }

        SubmitButton {
            width: parent.width
            text: step.viewModel.isNewUser ? qsTr("Verify & Create Account") : qsTr("Sign In")
            busy: step.viewModel.isLoading
            enabled: step.viewModel.isCodeLongEnough && !step.viewModel.isLoading
            onClicked: step.viewModel.submitCode()
        }
    }
}
