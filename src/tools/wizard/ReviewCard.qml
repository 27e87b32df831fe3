// One of the three choices, to be looked over before the start.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Card {
    id: card

    required property string icon
    required property string title
    required property string value
    required property color tint

    implicitHeight: Math.max(symbol.implicitHeight, name.implicitHeight, choice.implicitHeight) + 32
    color: Color.faded("white", 0.03)
    strokeColor: Color.faded("white", 0.05)
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ": " + value

    SymbolIcon {
        id: symbol

        x: 16
        anchors.verticalCenter: parent.verticalCenter
        width: 24
        name: card.icon
        size: 16
        color: card.tint
    }

    Label {
        id: name

        anchors.left: symbol.right
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        text: card.title
        font: Theme.rounded(14)
        color: Color.gray
        Accessible.ignored: true
    }

    Label {
        id: choice

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        text: card.value
        font: Theme.rounded(14, Font.DemiBold)
        color: "white"
        Accessible.ignored: true
    }
}
