// Several lines of text to type, without a frame: as high as its text between a least and a most number of lines, beyond which it
// scrolls.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Flickable {
    id: area

    // Its name for assistive programs.
    required property string label
    property string placeholderText
    property int minimumLines: 1
    property int maximumLines: 5
    // Return hands the text in instead of breaking the line; Shift and Return break it.
    property bool returnAccepts: false
    property alias text: edit.text
    property alias font: edit.font
    property alias color: edit.color
    readonly property alias field: edit

    // The text has become another, whoever changed it: a hand, an assistive program, or the owner.
    signal textEdited
    signal accepted

    function clear() {
        edit.clear();
    }

    function follow(cursor: rect) {
        if (cursor.y < contentY) {
            contentY = cursor.y;
        } else if (cursor.y + cursor.height > contentY + height) {
            contentY = cursor.y + cursor.height - height;
        }
    }

    implicitWidth: 200
    implicitHeight: Math.max(minimumLines, Math.min(edit.lineCount, maximumLines)) * Math.ceil(lines.height)
    contentWidth: width
    contentHeight: edit.implicitHeight
    clip: true
    interactive: false
    opacity: enabled ? 1 : 0.5

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        enabled: area.contentHeight > area.height
        onWheel: event => {
            const distance = event.pixelDelta.y !== 0 ? event.pixelDelta.y : event.angleDelta.y / 120 * 3 * lines.height;
            area.contentY = Math.max(0, Math.min(area.contentY - distance, area.contentHeight - area.height));
        }
    }

    TextEdit {
        id: edit

        width: area.width
        activeFocusOnTab: true
        color: Theme.textPrimary
        font: Theme.system(14)
        selectByMouse: true
        selectionColor: Theme.textSelection
        selectedTextColor: "white"
        textFormat: TextEdit.PlainText
        wrapMode: words.hasEndlessWord ? TextEdit.WrapAnywhere : TextEdit.Wrap

        Accessible.role: Accessible.EditableText
        Accessible.name: area.label
        Accessible.description: enabled ? area.placeholderText : qsTr("Unavailable")
        Accessible.multiLine: true

        onCursorRectangleChanged: area.follow(cursorRectangle)
        onTextChanged: area.textEdited()
        Keys.onPressed: event => {
            const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
            if (isReturn && area.returnAccepts && !(event.modifiers & Qt.ShiftModifier)) {
                event.accepted = true;
                area.accepted();
            }
        }
        // The tabulator moves on, as in every other field.
        Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
        Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

        Label {
            width: parent.width
            visible: edit.length === 0 && edit.preeditText.length === 0
            text: area.placeholderText
            font: edit.font
            color: Theme.textTertiary
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }

    // A field of several lines takes a click below its last one too.
    TapHandler {
        onTapped: edit.forceActiveFocus(Qt.MouseFocusReason)
    }

    WordWatch {
        id: words

        document: edit.textDocument
    }

    FontMetrics {
        id: lines

        font: edit.font
    }
}
