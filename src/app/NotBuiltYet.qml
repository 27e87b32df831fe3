// Stands in for a destination whose screen is not built yet.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    color: Theme.background

    Label {
        anchors.centerIn: parent
        text: qsTr("This screen is not built yet.")
        font: Theme.bodyFont
        color: Theme.textTertiary
    }
}
