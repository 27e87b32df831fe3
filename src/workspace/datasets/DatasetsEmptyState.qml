// What stands in place of the table when no dataset is there or passes: why, and what can be uploaded.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

EmptyState {
    signal upload

    symbol: "cylinder.split.1x2"
    title: qsTr("No Datasets")
    text: qsTr("Upload your training data in JSONL, JSON, or CSV format")
    buttonIcon: "arrow.up.doc"
    buttonText: qsTr("Upload Dataset")
    onButtonClicked: upload()

    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        topPadding: 16
        spacing: 12

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Supported formats")
            font: Theme.system(11, Font.Bold)
            color: Theme.textTertiary
        }

        Row {
            spacing: 12

            FormatBadge {
                format: "JSONL"
                icon: "doc.text"
            }

            FormatBadge {
                format: "JSON"
                icon: "curlybraces"
            }

            FormatBadge {
                format: "CSV"
                icon: "tablecells"
            }
        }
    }
}
