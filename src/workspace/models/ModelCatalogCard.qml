// One model of the catalog: its name and what it is for, its sizes, and a button that downloads it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    required property string identifier
    required property string name
    required property string description
    required property bool isTunable
    required property string params
    required property string context
    required property string size
    required property bool isDownloaded
    required property bool isDownloading

    readonly property bool isHovered: hovered

    signal download

    // A card that went while it had the keyboard keeps it.
    function press() {
        if (visible) {
            download();
        }
    }

    implicitHeight: 280
    hoverStrokeColor: Color.faded(Theme.accent, 0.5)
    scale: isHovered ? 1.01 : 1
    // The one that has the keyboard stays reachable until the next one has it.
    activeFocusOnTab: GridView.isCurrentItem || activeFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: description
    Accessible.focusable: true
    Accessible.onPressAction: press()
    Keys.onPressed: event => {
        event.accepted = [Qt.Key_Return, Qt.Key_Enter, Qt.Key_Space].includes(event.key);
        if (event.accepted && !event.isAutoRepeat) {
            press();
        }
    }

    Behavior on scale {
        NumberAnimation {
            duration: Motion.brief
            easing.type: Easing.InOutQuad
        }
    }

    Rectangle {
        id: tile

        x: 20
        y: 20
        width: 48
        height: 48
        radius: 8
        color: Color.faded(Theme.accent, 0.15)

        SymbolIcon {
            anchors.centerIn: parent
            name: "cpu"
            size: 20
            color: Theme.accent
        }
    }

    Column {
        anchors.right: card.right
        anchors.rightMargin: 20
        anchors.verticalCenter: tile.verticalCenter
        spacing: 6

        Badge {
            anchors.right: parent.right
            visible: card.isTunable
            symbol: "bolt.fill"
            text: qsTr("Fine-tunable")
            tint: Theme.success
        }

        Badge {
            anchors.right: parent.right
            visible: card.isDownloaded
            symbol: "checkmark.circle.fill"
            text: qsTr("Downloaded")
            tint: Theme.accent
        }
    }

    Column {
        id: words

        anchors.top: tile.bottom
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
            maximumLineCount: 2
            wrapMode: Text.Wrap
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
        anchors.top: words.bottom
        anchors.topMargin: 16
        x: 20
        spacing: 16

        SpecItem {
            visible: value.length > 0
            label: qsTr("Params")
            value: card.params
        }

        SpecItem {
            visible: value.length > 0
            label: qsTr("Context")
            value: card.context
        }

        SpecItem {
            visible: value.length > 0
            label: qsTr("Size")
            value: card.size
        }
    }

    PrimaryButton {
        id: downloadButton

        anchors.bottom: card.bottom
        anchors.bottomMargin: 20
        x: 20
        width: card.width - 40
        visible: !card.isDownloaded
        enabled: !card.isDownloading
        busy: card.isDownloading
        symbol: "arrow.down.circle"
        text: qsTr("Download")
        busyText: qsTr("Downloading...")
        spinnerColor: "white"
        spinnerSize: 0.7 * 32
        accessibleName: busy ? qsTr("Downloading %1").arg(card.name) : qsTr("Download %1").arg(card.name)
        activeFocusOnTab: false
        onClicked: card.download()
    }

    SecondaryButton {
        anchors.fill: downloadButton
        visible: card.isDownloaded
        enabled: false
        symbol: "checkmark"
        text: qsTr("Downloaded")
        activeFocusOnTab: false
    }

    FocusRing {
        visible: card.activeFocus && Keyboard.inUse
        cornerRadius: card.radius
    }
}
