// What stands on a button: a symbol, or a spinner in its place, and the words beside it, in the middle.
import QtQuick
import Quillmere.Controls

Item {
    id: item

    required property string text
    required property font font
    required property string symbol
    required property real symbolSize
    required property bool busy
    required property bool iconOnly
    required property color color
    property color spinnerColor: color
    required property real spacing
    required property real spinnerSize

    readonly property bool hasLead: busy || symbol.length > 0
    readonly property real leadWidth: (hasLead ? lead.width : 0) + (hasLead && label.visible ? spacing : 0)

    implicitWidth: leadWidth + (label.visible ? label.implicitWidth : 0)
    // Buttons with words are alike in height, with a symbol or a spinner beside them or without; in whole points, so that what
    // stands below is sharp.
    implicitHeight: iconOnly ? icon.implicitHeight : Math.ceil(line.height)

    Item {
        id: lead

        x: Math.round((item.width - item.implicitWidth) / 2)
        anchors.verticalCenter: parent.verticalCenter
        width: item.busy ? spinner.width : icon.implicitWidth
        height: width

        SymbolIcon {
            id: icon

            anchors.centerIn: parent
            visible: !item.busy
            name: item.symbol
            size: item.symbolSize
            bold: item.font.weight >= Font.Bold
            color: item.color
        }

        Spinner {
            id: spinner

            anchors.centerIn: parent
            visible: item.busy
            width: item.spinnerSize
            height: item.spinnerSize
            color: item.spinnerColor
            Accessible.ignored: true
        }
    }

    Label {
        id: label

        x: Math.max(0, Math.round((item.width - item.implicitWidth) / 2)) + item.leadWidth
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, item.width - item.leadWidth)
        visible: text.length > 0
        text: item.text
        font: item.font
        color: item.color
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    FontMetrics {
        id: line

        font: item.font
    }
}
