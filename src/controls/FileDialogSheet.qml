// The dialog within the window in which one file is picked: the folder, what is in it, and which types can be chosen. Arrow keys,
// letters and Return choose, Backspace goes up a folder, Escape closes.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Platform
import Quillmere.Theme

Sheet {
    id: sheet

    title: FileDialog.title
    visible: FileDialog.isUp
    contentWidth: 720
    contentHeight: 520
    fillColor: Theme.windowBackground
    onClosed: FileDialog.close()

    content: FocusScope {
        id: panel

        readonly property bool canOpen: list.currentIndex >= 0 && list.count > 0

        focus: true

        Connections {
            target: FileDialog

            function onListed(row: int) {
                path.text = FileDialog.folder;
                list.currentIndex = row;
                list.positionViewAtIndex(row, ListView.Contain);
                list.forceActiveFocus();
            }
        }

        Label {
            id: title

            x: 20
            y: 20
            text: FileDialog.title
            font: Theme.system(15, Font.DemiBold)
            color: "white"
            Accessible.role: Accessible.Heading
        }

        IconButton {
            id: up

            x: 16
            anchors.verticalCenter: path.verticalCenter
            symbol: "chevron.up"
            label: qsTr("Up One Folder")
            size: 14
            color: Theme.textSecondary
            enabled: FileDialog.folder !== "/"
            onClicked: FileDialog.goUp()
        }

        RoundedField {
            id: path

            anchors.left: up.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            anchors.rightMargin: 20
            anchors.top: title.bottom
            anchors.topMargin: 14
            label: qsTr("Folder or file")
            onAccepted: FileDialog.goTo(text)
        }

        Rectangle {
            anchors.fill: list
            anchors.margins: -1
            radius: 6
            color: Theme.surface
            border.width: 1
            border.color: list.activeFocus ? Theme.focusRing : Theme.border
        }

        ListView {
            id: list

            anchors.left: parent.left
            anchors.leftMargin: 20
            anchors.right: parent.right
            anchors.rightMargin: 20
            anchors.top: path.bottom
            anchors.topMargin: 14
            anchors.bottom: footer.top
            anchors.bottomMargin: 14
            focus: true
            activeFocusOnTab: true
            clip: true
            interactive: false
            boundsBehavior: Flickable.StopAtBounds
            reuseItems: true
            cacheBuffer: 0
            topMargin: 4
            bottomMargin: 4
            keyNavigationEnabled: true
            highlightMoveDuration: 0
            model: FileDialog.entries
            Accessible.role: Accessible.List
            Accessible.name: FileDialog.folder

            Keys.onReturnPressed: FileDialog.open(currentIndex)
            Keys.onEnterPressed: FileDialog.open(currentIndex)
            Keys.onPressed: event => {
                const page = Math.max(1, Math.floor(height / 30) - 1);
                const rows = {
                    [Qt.Key_Home]: 0,
                    [Qt.Key_End]: count - 1,
                    [Qt.Key_PageUp]: Math.max(0, currentIndex - page),
                    [Qt.Key_PageDown]: Math.min(count - 1, currentIndex + page)
                };
                if (rows[event.key] !== undefined) {
                    currentIndex = rows[event.key];
                } else if (event.key === Qt.Key_Backspace) {
                    FileDialog.goUp();
                } else if (event.text.length > 0 && event.text >= " " && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier))) {
                    const row = FileDialog.seek(event.text);
                    if (row >= 0) {
                        currentIndex = row;
                    }
                } else {
                    return;
                }
                event.accepted = true;
            }

            T.ScrollBar.vertical: ListScroll {}

            delegate: FileDialogRow {
                required property int index

                width: list.width
                isCurrent: ListView.isCurrentItem
                onChosen: {
                    list.currentIndex = index;
                    list.forceActiveFocus();
                }
                onOpened: FileDialog.open(index)
            }
        }

        Label {
            anchors.fill: list
            anchors.margins: 20
            visible: text.length > 0
            text: list.count > 0 ? "" : FileDialog.problem.length > 0 ? FileDialog.problem : qsTr("Nothing here to choose")
            color: Theme.textTertiary
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            wrapMode: Text.Wrap
        }

        Item {
            id: footer

            anchors.left: parent.left
            anchors.leftMargin: 20
            anchors.right: parent.right
            anchors.rightMargin: 20
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 20
            height: buttons.implicitHeight

            Label {
                readonly property bool saysWhyNot: FileDialog.problem.length > 0 && list.count > 0

                anchors.left: parent.left
                anchors.right: buttons.left
                anchors.rightMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                text: saysWhyNot ? FileDialog.problem : FileDialog.typesName
                font: Theme.system(12)
                color: saysWhyNot ? Theme.error : Theme.textTertiary
                elide: Text.ElideRight
            }

            Row {
                id: buttons

                anchors.right: parent.right
                spacing: 8

                BorderedButton {
                    text: qsTr("Cancel")
                    onClicked: FileDialog.close()
                }

                ProminentButton {
                    text: qsTr("Open")
                    enabled: panel.canOpen
                    onClicked: FileDialog.open(list.currentIndex)
                }
            }
        }
    }
}
