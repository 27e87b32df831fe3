// An alert over a sheet.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: page

    color: Theme.background

    ScreenHeader {
        y: 40
        width: page.width
        title: "Training"
        subtitle: "Monitor and manage your fine-tuning jobs"

        PrimaryButton {
            symbol: "plus"
            text: "New Training"
        }
    }

    Sheet {
        visible: true
        title: "New Training"
        contentWidth: 900
        contentHeight: 700
        hasCloseMark: true
        content: EmptyState {
            symbol: "sparkles"
            title: "A sheet"
            text: "Its content is made when it opens and gone when it has closed."
        }
    }

    AlertPanel {
        visible: true
        title: "Update Available"
        text: "Version 2.0.0 of Quillmere Studio can be downloaded. You have version 1.0.0."
        buttons: ["Download", "Later", "Skip This Version"]
    }
}
