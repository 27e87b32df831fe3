// Asks for the name and the description of a new project.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: sheet

    property alias name: nameInput.text
    property alias description: descriptionInput.text

    signal create(string name, string description)
    signal dismiss

    implicitWidth: 500
    implicitHeight: 400

    Item {
        id: header

        width: sheet.width
        height: title.implicitHeight + 48

        Label {
            id: title

            x: 24
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Create New Project")
            font: Theme.headingFont
            color: "white"
            Accessible.role: Accessible.Heading
        }

        IconButton {
            anchors.right: parent.right
            anchors.rightMargin: 24 - padding
            anchors.verticalCenter: parent.verticalCenter
            symbol: "xmark"
            size: 14
            color: Theme.textSecondary
            label: qsTr("Close")
            onClicked: sheet.dismiss()
        }
    }

    Divider {
        id: upperLine

        anchors.top: header.bottom
        width: sheet.width
    }

    ScrollArea {
        id: form

        anchors.top: upperLine.bottom
        anchors.bottom: lowerLine.top
        width: sheet.width
        contentHeight: fields.height + 48
        Accessible.name: title.text
        // A description of five lines makes the form a little higher than its place; what grows is its end.
        onContentHeightChanged: contentY = Math.max(0, contentHeight - height)

        Column {
            id: fields

            x: 24
            y: 24
            width: form.width - 48
            spacing: 20

            NewProjectField {
                width: fields.width
                focus: true
                label: qsTr("Project Name")

                PlainField {
                    id: nameInput

                    width: parent.width
                    focus: true
                    label: qsTr("Project Name")
                    placeholderText: qsTr("e.g., Medical LLM Fine-tuning")
                }
            }

            NewProjectField {
                width: fields.width
                label: qsTr("Description")

                GrowingField {
                    id: descriptionInput

                    width: parent.width
                    focus: true
                    label: qsTr("Description")
                    placeholderText: qsTr("Optional description...")
                    minimumLines: 3
                    maximumLines: 5
                }
            }
        }
    }

    Divider {
        id: lowerLine

        anchors.bottom: footer.top
        width: sheet.width
    }

    Item {
        id: footer

        anchors.bottom: sheet.bottom
        width: sheet.width
        height: buttons.implicitHeight + 48

        Row {
            id: buttons

            anchors.right: parent.right
            anchors.rightMargin: 24
            anchors.verticalCenter: parent.verticalCenter
            spacing: 8

            SecondaryButton {
                text: qsTr("Cancel")
                onClicked: sheet.dismiss()
            }

            PrimaryButton {
                enabled: sheet.name.length > 0
                text: qsTr("Create Project")
                onClicked: {
                    sheet.create(sheet.name, sheet.description);
                    sheet.dismiss();
                }
            }
        }
    }
}
