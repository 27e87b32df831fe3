// The Settings destination: four sections, one of them on display, and the way out of the session.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

Rectangle {
    id: view

    property int selectedSection: SettingsVocabulary.Account

    color: Theme.background

    onSelectedSectionChanged: pane.contentY = 0
    Component.onCompleted: settings.loadUserData()

    SettingsViewModel {
        id: settings
    }

    Rectangle {
        id: column

        width: 220
        height: view.height
        color: Theme.sidebarBackground

        Column {
            id: rows

            x: 20
            y: 20
            width: column.width - 40
            spacing: 4

            Repeater {
                id: sectionRows

                model: [SettingsVocabulary.Account, SettingsVocabulary.Subscription, SettingsVocabulary.Preferences, SettingsVocabulary.About]

                SettingsRow {
                    required property int index
                    required property int modelData

                    width: rows.width
                    // And the other way down.
                    KeyNavigation.up: index > 0 ? sectionRows.itemAt(index - 1) : null
                    symbol: settings.sectionIcon(modelData)
                    text: settings.sectionTitle(modelData)
                    selected: view.selectedSection === modelData
                    Accessible.selectable: true
                    Accessible.selected: selected
                    onClicked: view.selectedSection = modelData
                }
            }
        }

        SettingsRow {
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 20
            x: 20
            width: rows.width
            symbol: "rectangle.portrait.and.arrow.right"
            text: qsTr("Log Out")
            labelColor: Theme.error
            onClicked: settings.logout()
        }
    }

    Divider {
        id: line

        anchors.left: column.right
        width: 1
        height: view.height
        vertical: true
    }

    ScrollArea {
        id: pane

        anchors.left: line.right
        anchors.right: view.right
        height: view.height
        contentHeight: sections.height + 64
        Accessible.name: settings.sectionTitle(view.selectedSection)

        // A section is made anew each time it is selected. Repeaters of one, since a loader refuses components that are bound to
        // the ids around them.
        Column {
            id: sections

            x: 32
            y: 32
            width: pane.width - 64

            Repeater {
                model: view.selectedSection === SettingsVocabulary.Account ? 1 : 0

                AccountSection {
                    width: sections.width
                    viewModel: settings
                }
            }

            Repeater {
                model: view.selectedSection === SettingsVocabulary.Subscription ? 1 : 0

                SubscriptionSection {
                    width: sections.width
                    viewModel: settings
                }
            }

            Repeater {
                model: view.selectedSection === SettingsVocabulary.Preferences ? 1 : 0

                PreferencesSection {
                    width: sections.width
                    viewModel: settings
                }
            }

            Repeater {
                model: view.selectedSection === SettingsVocabulary.About ? 1 : 0

                AboutSection {
                    width: sections.width
                }
            }
        }
    }
}
