// The plan that is booked, and how much of it was used. The button does nothing, and so does the plan.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

SettingsPage {
    id: section

    required property SettingsViewModel viewModel

    title: qsTr("Subscription")

    SettingsCard {
        id: planCard

        width: section.width
        padding: 24
        spacing: 16

        Item {
            width: parent.width
            height: Math.max(plan.implicitHeight, upgrade.implicitHeight)

            Column {
                id: plan

                anchors.left: parent.left
                anchors.right: upgrade.left
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                spacing: 6

                Row {
                    spacing: 8

                    Badge {
                        width: Math.min(implicitWidth, plan.width - (activeMark.visible ? activeMark.width + parent.spacing : 0))
                        text: section.viewModel.planBadge
                        tint: section.viewModel.planColor
                        font: Theme.system(12, Font.Bold)
                        horizontalPadding: 10
                    }

                    Row {
                        id: activeMark

                        anchors.verticalCenter: parent.verticalCenter
                        visible: section.viewModel.isSubscriptionActive
                        spacing: 4

                        Rectangle {
                            anchors.verticalCenter: parent.verticalCenter
                            width: 6
                            height: 6
                            radius: 3
                            color: Theme.success
                        }

                        Label {
                            anchors.verticalCenter: parent.verticalCenter
                            text: qsTr("Active")
                            font: Theme.system(11, Font.Medium)
                            color: Theme.success
                        }
                    }
                }

                Label {
                    text: qsTr("Current Plan")
                    font: Theme.captionFont
                    color: Theme.textTertiary
                }
            }

            PrimaryButton {
                id: upgrade

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Upgrade")
            }
        }

        Divider {
            width: parent.width
        }

        Column {
            id: features

            width: parent.width
            spacing: 12

            Label {
                text: qsTr("Included Features")
                font: Theme.system(11, Font.Bold)
                color: Theme.textTertiary
                Accessible.role: Accessible.Heading
            }

            Repeater {
                model: section.viewModel.features

                Row {
                    id: feature

                    required property string modelData

                    spacing: 10

                    SymbolIcon {
                        id: mark

                        anchors.verticalCenter: parent.verticalCenter
                        name: "checkmark.circle.fill"
                        size: 14
                        color: Theme.success
                    }

                    Label {
                        anchors.verticalCenter: parent.verticalCenter
                        width: features.width - mark.width - feature.spacing
                        text: feature.modelData
                        font: Theme.captionFont
                        color: Theme.textSecondary
                        horizontalAlignment: Text.AlignLeft
                        wrapMode: Text.Wrap
                    }
                }
            }
        }
    }

    SettingsCard {
        width: section.width
        padding: 20

        SettingsGroup {
            heading: qsTr("Usage This Month")

            Row {
                spacing: 24

                UsageStatItem {
                    label: qsTr("Models")
                    used: 2
                    limit: section.viewModel.modelLimit
                }

                UsageStatItem {
                    label: qsTr("Training Jobs")
                    used: 5
                    limit: 10
                }

                UsageStatItem {
                    label: qsTr("API Calls")
                    used: 1247
                    limit: 10000
                }
            }
        }
    }
}
