// Stands in for a tab whose screen is not built yet.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    Label {
        anchors.centerIn: parent
        text: qsTr("This screen is not built yet.")
        color: Theme.textTertiary
    }
}
