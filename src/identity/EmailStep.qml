// First step of the sign-in: the e-mail address.
import QtQuick
import Quillmere.Controls
import Quillmere.Identity
import Quillmere.Theme

LoginStepColumn {
    id: step

    required property LoginViewModel viewModel

    initialFocus: field

    FormHeader {
        title: qsTr("Sign In")
        subtitle: qsTr("Access your Quillmere account")
    }

    Column {
        width: parent.width
        spacing: 8

        Label {
            text: qsTr("Email")
            font: Theme.system(12, Font.Medium)
            color: Color.gray
        }

        LoginField {
            id: field

            width: parent.width
            label: qsTr("Email")
            placeholder: qsTr("ada@example.org")
            font: Theme.system(14)
            value: step.viewModel.email
            onTyped: text => step.viewModel.email = text
            onAccepted: step.viewModel.submitEmail()
        }

        SubmitButton {
            width: parent.width
            text: qsTr("Continue")
            busy: step.viewModel.isLoading
            enabled: step.viewModel.isEmailValid && !step.viewModel.isLoading
            onClicked: step.viewModel.submitEmail()
        }
    }
}
