// One of the deployment actions. None of them does anything.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

PlainButton {
    id: button

    required property string title
    required property string icon
    required property color color

    text: title
    padding: 16
    radius: 8
    fillColor: Color.hex("1A1A1A")

    background: Card {
        radius: button.radius
        color: button.fillColor
        strokeColor: Color.hex("333333")
    }

    contentItem: Item {
        implicitWidth: content.implicitWidth
        implicitHeight: content.implicitHeight

        Column {
            id: content

            width: parent.width
            spacing: 8

            SymbolIcon {
                anchors.horizontalCenter: parent.horizontalCenter
                name: button.icon
                size: 20
                color: button.color
            }

            Label {
                width: parent.width
                text: button.title
                font: Theme.system(11, Font.Medium)
                color: "white"
                horizontalAlignment: Text.AlignHCenter
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
    }
}
