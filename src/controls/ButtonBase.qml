// What every button is made of: mouse and keyboard, the looks of hovered, pressed, focused, disabled and busy, and its
// name and action for assistive programs. Its kinds change nothing but colours, fonts and sizes, or bring a content item.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.Control {
    id: control

    property string text
    property string symbol
    property real symbolSize: font.pixelSize + 1
    // While busy a button takes no press and shows a spinner in the place of symbol and text, beside busyText if there is one.
    property bool busy: false
    property string busyText

    property color labelColor: Theme.textPrimary
    property color fillColor: "transparent"
    property color strokeColor: "transparent"
    property color hoverTint: Theme.hovered
    property real radius: 6
    property real pressedOpacity: 0.8
    property real disabledOpacity: 0.5
    property string accessibleName: busy && busyText.length > 0 ? busyText : text

    readonly property bool pressed: !busy && (area.pressed && area.containsMouse || spaceHeld)
    property bool spaceHeld: false

    signal clicked

    function press() {
        if (control.enabled && !control.busy) {
            control.clicked();
        }
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    font: Theme.system(13, Font.Medium)
    spacing: 8
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    // A busy button keeps its spinner bright, disabled or not; only its fill is dimmed.
    opacity: !enabled && !busy ? disabledOpacity : pressed ? pressedOpacity : 1

    Accessible.role: Accessible.Button
    Accessible.name: accessibleName
    Accessible.description: enabled && !busy ? "" : qsTr("Unavailable")
    Accessible.focusable: enabled
    Accessible.pressed: pressed
    Accessible.onPressAction: press()

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
    onActiveFocusChanged: spaceHeld = false

    background: Rectangle {
        radius: control.radius
        color: control.hovered && control.enabled && !control.busy ? Qt.tint(control.fillColor, control.hoverTint) : control.fillColor
        border.width: control.strokeColor.a > 0 ? 1 : 0
        border.color: control.strokeColor
        opacity: control.busy && !control.enabled ? control.disabledOpacity : 1
    }

    contentItem: ButtonLabel {
        text: control.busy ? control.busyText : control.text
        font: control.font
        symbol: control.symbol
        symbolSize: control.symbolSize
        busy: control.busy
        color: control.labelColor
        spacing: control.spacing
    }

    // Below the content, so that what takes the mouse there comes first.
    MouseArea {
        id: area

        anchors.fill: parent
        z: -1
        onPressed: control.forceActiveFocus(Qt.MouseFocusReason)
        onClicked: control.press()
    }

    FocusRing {
        visible: control.visualFocus
        cornerRadius: control.radius
    }
}
