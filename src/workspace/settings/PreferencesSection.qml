// Preferences that last as long as the section is on display. Nothing reads them.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

SettingsPage {
    id: section

    required property SettingsViewModel viewModel

    property bool enableNotifications: true
    property bool enableAnalytics: true
    property string defaultModel: "Llama 3 8B"

    title: qsTr("Preferences")

    SettingsGroup {
        width: section.width
        heading: qsTr("Appearance")

        SettingsCard {
            width: section.width
            radius: 8
            padding: 16

            Item {
                width: parent.width
                height: theme.implicitHeight

                Label {
                    id: theme

                    text: qsTr("Theme")
                    font: Theme.bodyFont
                    color: "white"
                }

                Label {
                    anchors.right: parent.right
                    text: qsTr("Dark")
                    font: Theme.bodyFont
                    color: Theme.textTertiary
                }
            }
        }
    }

    SettingsGroup {
        width: section.width
        heading: qsTr("Defaults")

        SettingsCard {
            width: section.width
            radius: 8

            PreferenceRow {
                width: parent.width
                title: qsTr("Default Base Model")
                value: section.defaultModel
            }

            Divider {
                width: parent.width
            }

            PreferenceRow {
                width: parent.width
                title: qsTr("Default Batch Size")
                value: "4"
            }

            Divider {
                width: parent.width
            }

            PreferenceRow {
                width: parent.width
                title: qsTr("Default Epochs")
                value: "3"
            }
        }
    }

    SettingsGroup {
        width: section.width
        heading: qsTr("Privacy")

        SettingsCard {
            width: section.width
            radius: 8

            PreferenceSwitch {
                width: parent.width
                text: qsTr("Send anonymous usage analytics")
                checked: section.enableAnalytics
                onToggled: section.enableAnalytics = !section.enableAnalytics
            }

            Divider {
                width: parent.width
            }

            PreferenceSwitch {
                width: parent.width
                text: qsTr("Training job notifications")
                checked: section.enableNotifications
                onToggled: section.enableNotifications = !section.enableNotifications
            }
        }
    }
}
