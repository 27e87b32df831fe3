// What the program is, and where more is to be found.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

SettingsPage {
    id: section

    title: qsTr("About")

    SettingsCard {
        width: section.width
        padding: 24
        spacing: 16

        Row {
            spacing: 16

            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                name: "bolt.fill"
                size: 40
                color: Theme.accent
            }

            Column {
                anchors.verticalCenter: parent.verticalCenter
                spacing: 4

                Label {
                    text: qsTr("Quillmere Studio")
                    font: Theme.headingFont
                    color: "white"
                }

                Label {
                    // Part of the page, whatever version runs.
                    text: qsTr("Version 1.0.0")
                    font: Theme.captionFont
                    color: Theme.textTertiary
                }
            }
        }

        Label {
            width: parent.width
            text: qsTr("Fine-tune LLMs locally with ease. Quillmere Studio provides a simple, intuitive interface for training custom language models on your own hardware.")
            font: Theme.bodyFont
            color: Theme.textSecondary
            wrapMode: Text.Wrap
        }
    }

    SettingsCard {
        id: links

        width: section.width

        AboutLink {
            width: links.width
            title: qsTr("Documentation")
            icon: "book"
            url: AboutLinks.documentation
        }

        Divider {
            width: links.width
        }

        AboutLink {
            width: links.width
            title: qsTr("Privacy Policy")
            icon: "hand.raised"
            url: AboutLinks.privacyPolicy
        }

        Divider {
            width: links.width
        }

        AboutLink {
            width: links.width
            title: qsTr("Terms of Service")
            icon: "doc.text"
            url: AboutLinks.termsOfService
        }

        Divider {
            width: links.width
        }

        AboutLink {
            width: links.width
            title: qsTr("Contact Support")
            icon: "envelope"
            url: AboutLinks.contactSupport
        }
    }
}
