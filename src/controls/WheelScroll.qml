// Scrolls a Flickable by wheel and touchpad in whole pixels, without overshoot.
import QtQuick

WheelHandler {
    id: wheel

    required property Flickable view

    // Points that one notch of a wheel goes.
    readonly property real notch: 53

    function scrollBy(distance: real) {
        const last = view.originY + Math.max(0, view.contentHeight + view.bottomMargin - view.height);
        view.contentY = Math.round(Math.max(view.originY - view.topMargin, Math.min(last, view.contentY + distance)));
    }

    acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    onWheel: event => scrollBy(event.pixelDelta.y !== 0 ? -event.pixelDelta.y : -event.angleDelta.y / 120 * notch)
}
