// A region that scrolls vertically, by wheel, touchpad, bar and keys.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls

Flickable {
    id: area

    clip: true
    interactive: false
    boundsBehavior: Flickable.StopAtBounds
    contentWidth: width

    Keys.onPressed: event => keys.handle(event)
    T.ScrollBar.vertical: SlimScrollBar {}

    WheelScroll {
        id: wheel

        view: area
    }

    ScrollKeys {
        id: keys

        wheel: wheel
    }
}
