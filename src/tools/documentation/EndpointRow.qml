// One route of the service.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: row

    required property string method
    required property string path
    required property string description

    implicitHeight: Math.max(pathLabel.height, descriptionLabel.height)
    Accessible.role: Accessible.StaticText
    Accessible.name: method + " " + path + ", " + description

    Label {
        width: 50
        anchors.verticalCenter: parent.verticalCenter
        text: row.method
        font: Theme.system(10, Font.Bold)
        color: {
            switch (row.method) {
            case "GET":
                return Theme.success;
            case "POST":
                return Theme.accent;
            case "DELETE":
                return Theme.error;
            default:
                return Theme.textSecondary;
            }
        }
        Accessible.ignored: true
    }

    Label {
        id: pathLabel

        x: 50 + 8
        anchors.verticalCenter: parent.verticalCenter
        text: row.path
        font: Theme.monoFont
        color: "white"
        Accessible.ignored: true
    }

    Label {
        id: descriptionLabel

        anchors.left: pathLabel.right
        anchors.leftMargin: 16
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: row.description
        font: Theme.captionFont
        color: Theme.textTertiary
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
