// A table of shortcuts, and a table only.
import QtQuick
import Quillmere.Tools

DocPage {
    id: page

    title: qsTr("Keyboard Shortcuts")

    DocSection {
        width: page.width
        title: qsTr("Navigation")

        ShortcutRow {
            width: parent.width
            keys: ["⌘", "1"]
            action: qsTr("Go to Dashboard")
        }

        ShortcutRow {
            width: parent.width
            keys: ["⌘", "2"]
            action: qsTr("Go to Projects")
        }

        ShortcutRow {
            width: parent.width
            keys: ["⌘", "3"]
            action: qsTr("Go to Datasets")
        }

        ShortcutRow {
            width: parent.width
            keys: ["⌘", "4"]
            action: qsTr("Go to Models")
        }

        ShortcutRow {
            width: parent.width
            keys: ["⌘", ","]
            action: qsTr("Open Settings")
        }
    }

    DocSection {
        width: page.width
        title: qsTr("Actions")

        ShortcutRow {
            width: parent.width
            keys: ["⌘", "N"]
            action: qsTr("New Project")
        }

        ShortcutRow {
            width: parent.width
            keys: ["⌘", "U"]
            action: qsTr("Upload Dataset")
        }

        ShortcutRow {
            width: parent.width
            keys: ["⌘", "T"]
            action: qsTr("New Training Job")
        }

        ShortcutRow {
            width: parent.width
            keys: ["⌘", "F"]
            action: qsTr("Search")
        }
    }
}
