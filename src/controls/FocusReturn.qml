// Gives the keyboard back to what had it before a popup opened, unless it has gone elsewhere meanwhile.
import QtQuick
import QtQuick.Templates as T

Connections {
    id: keeper

    required property T.Popup popup
    property Item holder

    target: popup

    function onAboutToShow() {
        holder = popup.parent.Window.activeFocusItem;
    }

    function onClosed() {
        const window = popup.parent.Window;
        if (holder && (!window.activeFocusItem || window.activeFocusItem === window.contentItem)) {
            holder.forceActiveFocus(Qt.PopupFocusReason);
        }
    }
}
