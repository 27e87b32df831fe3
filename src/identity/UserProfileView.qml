// The profile destination: the shape of a profile page, the same for everybody. Nothing on it is read from the session, and its
// buttons do nothing.
import QtQuick
import Quillmere.Controls
import Quillmere.Identity
import Quillmere.Theme

Rectangle {
    id: view

    color: Theme.background

    ScrollArea {
        anchors.fill: parent
        contentHeight: page.height + 80
        Accessible.name: qsTr("Profile")

        Column {
            id: page

            x: 40
            y: 40
            width: view.width - 80
            spacing: 32

            Item {
                width: parent.width
                height: 80

                Rectangle {
                    id: avatar

                    width: 80
                    height: 80
                    radius: 40
                    color: Color.blue

                    Label {
                        anchors.centerIn: parent
                        text: "JD"
                        font: Theme.system(32, Font.Bold)
                        color: "white"
                        Accessible.ignored: true
                    }
                }

                Column {
                    anchors.left: avatar.right
                    anchors.leftMargin: 8
                    anchors.right: edit.left
                    anchors.rightMargin: 24
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 8

                    Label {
                        width: parent.width
                        text: "John Doe"
                        font: Theme.system(28, Font.Bold)
                        color: "white"
                        elide: Text.ElideRight
                        Accessible.role: Accessible.Heading
                    }

                    Label {
                        width: parent.width
                        text: "john.doe@example.com"
                        font: Theme.system(16)
                        color: Color.gray
                        elide: Text.ElideRight
                    }
                }

                BorderedButton {
                    id: edit

                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Edit Profile")
                }
            }

            Row {
                spacing: 12

                Badge {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("PRO PLAN")
                    font: Theme.system(11, Font.Bold)
                    tint: "black"
                    color: Color.yellow
                }

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Member since 2024")
                    font: Theme.system(13)
                    color: Color.gray
                }
            }

            Column {
                width: parent.width
                spacing: 16

                Label {
                    text: qsTr("CURRENT USAGE")
                    font: Theme.system(12, Font.Bold)
                    color: Color.gray
                    Accessible.role: Accessible.Heading
                }

                Row {
                    id: usage

                    // Whole points, so that edges are sharp; the last card takes what is left.
                    readonly property real cardWidth: Math.floor((width - 2 * spacing) / 3)

                    width: parent.width
                    spacing: 16

                    UsageCard {
                        width: usage.cardWidth
                        title: qsTr("GPU Hours")
                        value: "124 / 200"
                        progress: 0.62
                        tint: Color.blue
                    }

                    UsageCard {
                        width: usage.cardWidth
                        title: qsTr("Storage")
                        value: qsTr("45GB / 100GB")
                        progress: 0.45
                        tint: Color.purple
                    }

                    UsageCard {
                        width: usage.width - x
                        title: qsTr("API Calls")
                        value: "12k / 50k"
                        progress: 0.24
                        tint: Color.green
                    }
                }
            }

            Column {
                width: parent.width
                spacing: 16

                Label {
                    text: qsTr("BILLING")
                    font: Theme.system(12, Font.Bold)
                    color: Color.gray
                    Accessible.role: Accessible.Heading
                }

                Rectangle {
                    width: parent.width
                    height: card.height + 48
                    radius: 16
                    color: Color.faded("white", 0.05)

                    SymbolIcon {
                        id: symbol

                        x: 24
                        anchors.verticalCenter: parent.verticalCenter
                        name: "creditcard.fill"
                        size: 24
                        color: "white"
                    }

                    Column {
                        id: card

                        anchors.left: symbol.right
                        anchors.leftMargin: 16
                        anchors.right: manage.left
                        anchors.rightMargin: 16
                        anchors.verticalCenter: parent.verticalCenter
                        spacing: 4

                        Label {
                            width: parent.width
                            text: qsTr("Visa ending in 4242")
                            font: Theme.system(16, Font.Medium)
                            color: "white"
                            elide: Text.ElideRight
                        }

                        Label {
                            width: parent.width
                            text: qsTr("Next billing date: Dec 15, 2025")
                            font: Theme.system(13)
                            color: Color.gray
                            elide: Text.ElideRight
                        }
                    }

                    BorderedButton {
                        id: manage

                        anchors.right: parent.right
                        anchors.rightMargin: 24
                        anchors.verticalCenter: parent.verticalCenter
                        text: qsTr("Manage Subscription")
                    }
                }
            }
        }
    }
}
