// What every button is made of: mouse and keyboard, the looks of hovered, pressed, focused, disabled and busy, and its
// name and action for assistive programs. Its kinds change nothing but colours, fonts and sizes, or bring a content item
// and a background of their own. It stands on no template of the toolkit: those read "&" as a mark for a key, and do not
// take the role they are told.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: control

    property string text
    property string symbol
    property real symbolSize: font.pixelSize + 1
    // While busy a button takes no press and shows a spinner in the place of symbol and text, beside busyText if there is one.
    property bool busy: false
    property string busyText

    property font font: Theme.system(13, Font.Medium)
    property real padding: 0
    property real horizontalPadding: padding
    property real verticalPadding: padding
    property real spacing: 8
    property real radius: 6
    property color labelColor: Theme.textPrimary
    property color spinnerColor: labelColor
    property real spinnerSize: 16
    property color fillColor: "transparent"
    property color hoverTint: Theme.hovered
    property real pressedOpacity: 0.8
    property real disabledOpacity: 0.5
    // False where a kind draws a ring of its own.
    property bool hasFocusRing: true
    property string accessibleName: busy && busyText.length > 0 ? busyText : text

    readonly property bool hovered: pointer.hovered && enabled && !busy
    readonly property bool pressed: !busy && (area.pressed && area.containsMouse || spaceHeld)
    readonly property bool visualFocus: activeFocus && Keyboard.inUse

    property bool spaceHeld: false

    property Item background: Rectangle {
        radius: control.radius
        color: control.hovered ? Qt.tint(control.fillColor, control.hoverTint) : control.fillColor
        opacity: control.busy && !control.enabled ? control.disabledOpacity : 1
    }

    property Item contentItem: ButtonLabel {
        text: control.busy ? control.busyText : control.text
        font: control.font
        symbol: control.symbol
        symbolSize: control.symbolSize
        busy: control.busy
        iconOnly: control.text.length === 0 && control.symbol.length > 0
        color: control.labelColor
        spinnerColor: control.spinnerColor
        spinnerSize: control.spinnerSize
        spacing: control.spacing
    }

    signal clicked

    // A button that went while it had the keyboard keeps it, and assistive programs may still know it.
    function press() {
        if (control.visible && control.enabled && !control.busy) {
            control.clicked();
        }
    }

    function place(item, area) {
        if (item) {
            item.parent = area;
            item.anchors.fill = area;
        }
    }

    // Whole points, so that both its edges are sharp wherever it is aligned.
    implicitWidth: Math.ceil(contentItem ? contentItem.implicitWidth : 0) + 2 * horizontalPadding
    implicitHeight: (contentItem ? contentItem.implicitHeight : 0) + 2 * verticalPadding
    activeFocusOnTab: true
    // A busy button keeps its spinner bright, disabled or not; only its fill is dimmed.
    opacity: !enabled && !busy ? disabledOpacity : pressed ? pressedOpacity : 1

    Accessible.role: Accessible.Button
    Accessible.name: accessibleName
    // The toolkit has no word for disabled.
    Accessible.description: enabled && !busy ? "" : qsTr("Unavailable")
    Accessible.focusable: enabled
    Accessible.pressed: pressed
    Accessible.onPressAction: press()

    Component.onCompleted: {
        place(background, ground);
        place(contentItem, content);
    }
    onBackgroundChanged: place(background, ground)
    onContentItemChanged: place(contentItem, content)
    onActiveFocusChanged: spaceHeld = false

    Keys.onPressed: event => {
        if (event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)) {
            return;
        }
        if (event.key === Qt.Key_Space) {
            spaceHeld = true;
            event.accepted = true;
        } else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter) {
            event.accepted = true;
            if (!event.isAutoRepeat) {
                press();
            }
        }
    }
    Keys.onReleased: event => {
        if (event.key === Qt.Key_Space && !event.isAutoRepeat && spaceHeld) {
            spaceHeld = false;
            event.accepted = true;
            press();
        }
    }

    Item {
        id: ground

        anchors.fill: parent
    }

    HoverHandler {
        id: pointer
    }

    // Below the content, so that what takes the mouse there comes first.
    MouseArea {
        id: area

        anchors.fill: parent
        onPressed: {
            if (control.activeFocusOnTab) {
                control.forceActiveFocus(Qt.MouseFocusReason);
            }
        }
        onClicked: control.press()
    }

    Item {
        id: content

        anchors.fill: parent
        anchors.leftMargin: control.horizontalPadding
        anchors.rightMargin: control.horizontalPadding
        anchors.topMargin: control.verticalPadding
        anchors.bottomMargin: control.verticalPadding
    }

    FocusRing {
        visible: control.visualFocus && control.hasFocusRing
        cornerRadius: control.radius
    }
}
