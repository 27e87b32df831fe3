// Where the monitoring page stands, and that all is well.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: bar

    implicitHeight: pill.height + 24

    Row {
        x: 24
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        Label {
            text: qsTr("Dashboard")
            font: Theme.bodyFont
            color: Theme.textTertiary
        }

        Label {
            text: "/"
            font: Theme.bodyFont
            color: Theme.textTertiary
            Accessible.ignored: true
        }

        Label {
            text: qsTr("Monitoring")
            font: Theme.bodyFont
            color: Theme.textSecondary
        }
    }

    Rectangle {
        id: pill

        anchors.right: parent.right
        anchors.rightMargin: 24
        anchors.verticalCenter: parent.verticalCenter
        width: health.width + 24
        height: health.height + 12
        radius: 6
        color: Color.faded(Theme.success, 0.1)

        Row {
            id: health

            anchors.centerIn: parent
            spacing: 6

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 6
                height: 6
                radius: 3
                color: Theme.success
            }

            Label {
                text: qsTr("System Healthy")
                font: Theme.monoFont
                color: Theme.success
            }
        }
    }
}
