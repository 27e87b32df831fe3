// The scroll bar of a view, and all that scrolls it: the wheel, the keys that the view hands on, and the focus that goes out of sight.
// It lies over the content and shows itself while the pointer is in the view.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.ScrollBar {
    id: bar

    readonly property Flickable view: parent as Flickable
    readonly property real first: view ? view.originY - view.topMargin : 0
    readonly property real last: view ? Math.max(first, view.originY + view.contentHeight + view.bottomMargin - view.height) : 0
    readonly property bool scrollable: size < 1

    function scrollTo(position: real) {
        view.contentY = Math.round(Math.max(first, Math.min(position, last)));
    }

    // Page Up, Page Down, Home and End.
    function scrollByKey(event: KeyEvent) {
        const targets = {
            [Qt.Key_PageUp]: view.contentY - view.height * 0.9,
            [Qt.Key_PageDown]: view.contentY + view.height * 0.9,
            [Qt.Key_Home]: first,
            [Qt.Key_End]: last
        };
        const target = targets[event.key];
        event.accepted = scrollable && target !== undefined;
        if (event.accepted) {
            scrollTo(target);
        }
    }

    // Moves the view as little as brings an item in it into sight, with its focus ring. Only for the keyboard: what is pressed must
    // not move away under the pointer.
    function reveal(item: Item) {
        let ancestor = item;
        while (ancestor && ancestor !== view?.contentItem) {
            ancestor = ancestor.parent;
        }
        if (!ancestor || !Keyboard.inUse) {
            return;
        }
        const air = 12;
        const place = item.mapToItem(view.contentItem, 0, 0, item.width, item.height);
        if (place.y - air < view.contentY || place.height + 2 * air > view.height) {
            scrollTo(place.y - air);
        } else if (place.y + place.height + air > view.contentY + view.height) {
            scrollTo(place.y + place.height + air - view.height);
        }
    }

    readonly property Item focused: Window.activeFocusItem
    onFocusedChanged: reveal(focused)

    visible: policy === T.ScrollBar.AlwaysOn || policy === T.ScrollBar.AsNeeded && scrollable
    orientation: Qt.Vertical
    padding: 3
    implicitWidth: 12
    minimumSize: height > 0 ? Math.min(1, 32 / height) : 0
    opacity: pointer.hovered || hovered || pressed || view?.activeFocus ? 1 : 0

    Behavior on opacity {
        NumberAnimation {
            duration: Motion.standard
        }
    }

    contentItem: Rectangle {
        radius: width / 2
        color: Color.faded("white", bar.pressed ? 0.45 : bar.hovered ? 0.35 : 0.2)
    }

    HoverHandler {
        id: pointer

        parent: bar.parent
    }

    WheelHandler {
        parent: bar.parent
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        enabled: bar.scrollable
        // A touchpad tells points; a wheel tells notches of 120.
        onWheel: event => bar.scrollTo(bar.view.contentY - (event.pixelDelta.y !== 0 ? event.pixelDelta.y : event.angleDelta.y * 0.6))
    }
}
