// What the keys for going through a page do to a region that scrolls.
import QtQuick
import Quillmere.Controls

QtObject {
    id: keys

    required property WheelScroll wheel

    function handle(event: KeyEvent) {
        const view = wheel.view;
        const page = view.height - wheel.notch;
        event.accepted = true;
        if (event.key === Qt.Key_PageDown) {
            wheel.scrollBy(page);
        } else if (event.key === Qt.Key_PageUp) {
            wheel.scrollBy(-page);
        } else if (event.key === Qt.Key_End) {
            wheel.scrollBy(view.contentHeight);
        } else if (event.key === Qt.Key_Home) {
            wheel.scrollBy(-view.contentHeight);
        } else if (event.key === Qt.Key_Down) {
            wheel.scrollBy(wheel.notch);
        } else if (event.key === Qt.Key_Up) {
            wheel.scrollBy(-wheel.notch);
        } else {
            event.accepted = false;
        }
    }
}
