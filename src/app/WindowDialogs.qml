// The dialogs that any screen may raise: picking a file, and the alert. They stand on the toolkit's popups, whose types take longer to
// load than all else that the first frame needs; so the window loads them with the first one that is raised.
import QtQuick
import Quillmere.Controls
import Quillmere.Platform

Item {
    FileDialogSheet {}

    AlertPanel {
        visible: Alerts.isUp
        title: Alerts.title
        text: Alerts.text
        buttons: Alerts.buttons
        onAnswered: index => Alerts.answer(index)
    }
}
