// What was checked, after the mark of how it came out. Narrower than its one line, it breaks between words.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: item

    required property string label
    required property int status

    readonly property real inset: mark.width + 6
    readonly property real minimumWidth: inset + Math.ceil(narrow.contentWidth)

    implicitWidth: inset + Math.ceil(words.implicitWidth)
    implicitHeight: Math.max(mark.height, words.height)
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + CheckStatus.name(status)

    SymbolIcon {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        name: CheckStatus.symbol(item.status)
        size: 12
        color: CheckStatus.color(item.status)
    }

    Label {
        id: words

        x: item.inset
        width: item.width - item.inset
        anchors.verticalCenter: parent.verticalCenter
        text: item.label
        font: Theme.monospaced(12)
        wrapMode: Text.WordWrap
        Accessible.ignored: true
    }

    // As wide as the longest word.
    Label {
        id: narrow

        width: 1
        visible: false
        text: item.label
        font: words.font
        wrapMode: Text.WordWrap
        Accessible.ignored: true
    }
}
