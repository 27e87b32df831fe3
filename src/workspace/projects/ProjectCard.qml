// One project: its name and status, what it is for, what it holds, and how long ago it was updated.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    required property string name
    required property string description
    required property string modelCount
    required property string datasetCount
    required property string badge
    required property color statusColor
    required property string updatedText

    readonly property bool isHovered: hovered

    implicitHeight: 200
    hoverStrokeColor: Color.faded(Theme.accent, 0.5)
    scale: isHovered ? 1.02 : 1
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: description

    Behavior on scale {
        NumberAnimation {
            duration: Motion.brief
            easing.type: Easing.InOutQuad
        }
    }

    Item {
        id: top

        x: 20
        y: 20
        width: card.width - 40
        height: Math.max(folder.implicitHeight, status.implicitHeight)

        SymbolIcon {
            id: folder

            anchors.verticalCenter: parent.verticalCenter
            name: "folder.fill"
            size: 20
            color: Theme.accent
        }

        Badge {
            id: status

            anchors.right: parent.right
            y: Math.round((parent.height - height) / 2)
            text: card.badge
            tint: card.statusColor
        }
    }

    Column {
        anchors.top: top.bottom
        anchors.topMargin: 16
        x: 20
        width: card.width - 40
        spacing: 6

        Label {
            width: parent.width
            text: card.name
            font: Theme.bodyMediumFont
            color: "white"
            elide: Text.ElideRight
            // Leading, whatever the direction of its words.
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
        }

        Label {
            width: parent.width
            text: card.description
            font: Theme.captionFont
            color: Theme.textSecondary
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 2
            wrapMode: Text.Wrap
        }
    }

    Row {
        id: stats

        anchors.bottom: card.bottom
        anchors.bottomMargin: 20
        baselineOffset: models.baselineOffset
        x: 20
        spacing: 16

        StatItem {
            id: models

            icon: "cpu"
            value: card.modelCount
            label: qsTr("Models")
        }

        StatItem {
            icon: "cylinder.split.1x2"
            value: card.datasetCount
            label: qsTr("Datasets")
        }
    }

    Label {
        anchors.left: stats.right
        anchors.leftMargin: 8
        anchors.right: card.right
        anchors.rightMargin: 20
        anchors.baseline: stats.baseline
        text: card.updatedText
        font: Theme.system(11)
        color: Theme.textTertiary
        // Smaller before it is cut, where the sidebar is wide and the window is not.
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 9
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignRight
    }
}
