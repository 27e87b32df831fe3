// Who is signed in, and the token that speaks for them, masked. The buttons do nothing.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

SettingsPage {
    id: section

    required property SettingsViewModel viewModel

    title: qsTr("Account")

    Component.onCompleted: viewModel.updateMaskedToken()

    SettingsCard {
        width: section.width
        padding: 24

        Item {
            width: parent.width
            height: Math.max(avatar.height, words.implicitHeight)

            Rectangle {
                id: avatar

                anchors.verticalCenter: parent.verticalCenter
                width: 80
                height: 80
                radius: 40
                color: Color.faded(Theme.accent, 0.2)

                Label {
                    anchors.centerIn: parent
                    width: 64
                    visible: section.viewModel.hasUser
                    text: section.viewModel.userInitial
                    font: Theme.system(32, Font.Bold)
                    color: Theme.accent
                    // Some characters are wider than the circle.
                    fontSizeMode: Text.HorizontalFit
                    minimumPixelSize: 8
                    horizontalAlignment: Text.AlignHCenter
                    Accessible.ignored: true
                }

                SymbolIcon {
                    anchors.centerIn: parent
                    visible: !section.viewModel.hasUser
                    name: "person.fill"
                    size: 32
                    color: Theme.textTertiary
                }
            }

            Column {
                id: words

                anchors.left: avatar.right
                anchors.leftMargin: 20
                anchors.right: edit.left
                anchors.rightMargin: 20
                anchors.verticalCenter: parent.verticalCenter
                spacing: 6

                Label {
                    width: parent.width
                    text: section.viewModel.hasUser ? section.viewModel.userName : qsTr("Not Signed In")
                    font: Theme.headingFont
                    color: "white"
                    elide: Text.ElideRight
                    // Leading, whatever the direction of its words.
                    horizontalAlignment: Text.AlignLeft
                    maximumLineCount: 1
                }

                Label {
                    width: parent.width
                    visible: section.viewModel.hasUser
                    text: section.viewModel.userEmail
                    font: Theme.bodyFont
                    color: Theme.textSecondary
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                    maximumLineCount: 1
                }
            }

            SecondaryButton {
                id: edit

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Edit Profile")
            }
        }
    }

    SettingsGroup {
        id: access

        width: section.width
        heading: qsTr("API Access")

        SettingsCard {
            width: access.width
            padding: 16
            radius: 8

            Item {
                width: parent.width
                height: Math.max(token.implicitHeight, regenerate.implicitHeight)

                Column {
                    id: token

                    anchors.left: parent.left
                    anchors.right: regenerate.left
                    anchors.rightMargin: 16
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 4

                    Label {
                        text: qsTr("Auth Token")
                        font: Theme.captionFont
                        color: Theme.textTertiary
                    }

                    Label {
                        width: parent.width
                        text: section.viewModel.maskedToken
                        font: Theme.monoFont
                        color: "white"
                        elide: Text.ElideRight
                        horizontalAlignment: Text.AlignLeft
                        maximumLineCount: 1
                    }
                }

                SecondaryButton {
                    id: regenerate

                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Regenerate")
                }
            }
        }
    }
}
