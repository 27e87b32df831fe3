// What stands on a sheet: its content, and over it the close mark of its host.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

FocusScope {
    id: body

    required property string title
    required property Component content
    required property bool hasCloseMark

    signal closeMarkClicked

    property Item shown

    implicitWidth: shown ? shown.implicitWidth : 0
    implicitHeight: shown ? shown.implicitHeight : 0
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: title

    FocusScope {
        id: place

        anchors.fill: parent
        focus: true

        // A loader refuses components that are bound to the ids around them.
        Repeater {
            model: body.content ? 1 : 0
            delegate: body.content
            onItemAdded: (index, item) => {
                item.anchors.fill = place;
                body.shown = item;
            }
        }
    }

    IconButton {
        anchors.top: parent.top
        anchors.right: parent.right
        anchors.margins: 12
        visible: body.hasCloseMark
        symbol: "xmark"
        label: qsTr("Close")
        size: 14
        color: Theme.textSecondary
        onClicked: body.closeMarkClicked()
    }
}
