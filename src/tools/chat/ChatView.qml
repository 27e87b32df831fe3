// The chat destination: a conversation with a model that answers with a fixed text.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Rectangle {
    id: view

    color: Theme.windowBackground

    ChatState {
        id: chat

        onMessageCountChanged: messages.showLast()
        onReplied: text => announcement.say(text)
    }

    Item {
        id: header

        width: view.width
        height: 48 + Math.ceil(Math.max(titles.height, tools.height))

        Column {
            id: titles

            anchors.left: parent.left
            anchors.leftMargin: 24
            anchors.right: tools.left
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 4

            Label {
                width: parent.width
                text: qsTr("Chat with Model")
                font: Theme.system(24, Font.Bold)
                color: Theme.label
                elide: Text.ElideRight
                Accessible.role: Accessible.Heading
            }

            Label {
                width: parent.width
                text: qsTr("Talk to your fine-tuned AI models")
                font: Theme.system(13)
                color: Theme.secondaryLabel
                elide: Text.ElideRight
            }
        }

        Row {
            id: tools

            anchors.right: parent.right
            anchors.rightMargin: 24
            anchors.verticalCenter: parent.verticalCenter
            spacing: 8

            ModelMenu {
                anchors.verticalCenter: parent.verticalCenter
                selectedModel: chat.selectedModel
                models: chat.models
                onSelected: model => chat.selectedModel = model
            }

            IconButton {
                anchors.verticalCenter: parent.verticalCenter
                symbol: "arrow.clockwise"
                label: qsTr("Reset conversation")
                size: 14
                padding: 8
                fillColor: Theme.controlBackground
                onClicked: chat.reset()
            }
        }
    }

    Divider {
        id: upperDivider

        anchors.top: header.bottom
        width: view.width
    }

    MessageList {
        id: messages

        anchors.top: upperDivider.bottom
        anchors.bottom: lowerDivider.top
        width: view.width
        accessibleName: qsTr("Conversation")
        model: chat.messages
    }

    // Assistive programs read out a notification that comes up.
    Item {
        id: announcement

        function say(text: string) {
            visible = false;
            Accessible.name = text;
            visible = true;
        }

        visible: false
        Accessible.role: Accessible.Notification
    }

    Divider {
        id: lowerDivider

        anchors.bottom: input.top
        width: view.width
    }

    Item {
        id: input

        anchors.bottom: view.bottom
        width: view.width
        height: field.height + 32

        IconButton {
            id: attach

            anchors.verticalCenter: parent.verticalCenter
            x: 12
            symbol: "paperclip"
            label: qsTr("Attach")
            color: Theme.secondaryLabel
        }

        MessageField {
            id: field

            anchors.left: attach.right
            anchors.leftMargin: 8
            anchors.right: send.left
            anchors.rightMargin: 12
            y: 16
            height: implicitHeight
            text: chat.inputText
            onTextEdited: {
                if (text !== chat.inputText) {
                    chat.inputText = text;
                }
            }
            onAccepted: chat.sendMessage()
        }

        // Blanks alone make it live, though there is nothing to send then.
        IconButton {
            id: send

            anchors.right: parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            enabled: chat.inputText.length > 0
            symbol: "arrow.up.circle.fill"
            label: qsTr("Send")
            size: 32
            padding: 0
            radius: 16
            color: enabled ? Color.blue : Color.gray
            disabledOpacity: 1
            onClicked: {
                chat.sendMessage();
                field.field.forceActiveFocus();
            }
        }
    }
}
