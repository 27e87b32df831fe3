// One tab of the strip, underlined while it is on show.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

ButtonBase {
    id: button

    required property bool selected

    padding: 12
    radius: 0
    fillColor: selected ? AnalyticsPalette.card : "transparent"
    hoverTint: "transparent"
    // The ring around it lies over its neighbours.
    z: visualFocus ? 1 : 0
    Accessible.role: Accessible.PageTab
    Accessible.selectable: true
    Accessible.selected: selected

    contentItem: Item {
        implicitWidth: title.implicitWidth
        implicitHeight: title.implicitHeight + 10

        Label {
            id: title

            anchors.horizontalCenter: parent.horizontalCenter
            text: button.text.toUpperCase()
            font: Theme.tracked(Theme.rounded(11, button.selected ? Font.Bold : Font.Medium), 1)
            color: button.selected ? "white" : Color.gray
            Accessible.ignored: true
        }

        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 2
            color: button.selected ? Color.cyan : "transparent"
        }
    }
}
