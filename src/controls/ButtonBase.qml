// What all buttons share: pointer, keyboard, focus ring, accessibility, a symbol beside the label, and a spinner in their place
// while busy. Variants say how it looks.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.AbstractButton {
    id: button

    // Not the `text` of the base, which would take an "&" for a keyboard mark.
    property string label
    property string symbol
    property real symbolSize: font.pixelSize
    property bool busy: false
    property color labelColor: "white"
    property color fillColor: "transparent"
    property real radius: 6
    property real pressedOpacity: 0.8
    property real disabledOpacity: 0.5

    font: Theme.system(13, Font.Medium)
    spacing: 8
    horizontalPadding: 16
    verticalPadding: 8
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    focusPolicy: Qt.StrongFocus
    opacity: !enabled ? disabledOpacity : down ? pressedOpacity : 1

    Keys.onReturnPressed: click()
    Keys.onEnterPressed: click()
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.focusable: enabled
    Accessible.onPressAction: if (enabled) {
        clicked();
    }

    contentItem: Item {
        implicitWidth: row.implicitWidth
        implicitHeight: row.implicitHeight

        Row {
            id: row

            anchors.centerIn: parent
            spacing: button.spacing
            opacity: button.busy ? 0 : 1

            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                visible: button.symbol.length > 0
                name: button.symbol
                size: button.symbolSize
                bold: button.font.weight >= Font.DemiBold
                color: button.labelColor
            }

            Label {
                anchors.verticalCenter: parent.verticalCenter
                visible: text.length > 0
                text: button.label
                font: button.font
                color: button.labelColor
                Accessible.ignored: true
            }
        }

        Spinner {
            anchors.centerIn: parent
            scale: 0.7
            color: button.labelColor
            visible: button.busy
        }
    }

    background: Rectangle {
        radius: button.radius
        color: button.fillColor

        FocusRing {
            around: button.radius
            visible: button.visualFocus
        }
    }
}
