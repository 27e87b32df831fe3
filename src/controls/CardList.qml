// A column of cards that scrolls.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls

ListView {
    id: list

    property string label

    clip: true
    interactive: false
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    spacing: 12
    topMargin: 24
    bottomMargin: 24
    Accessible.role: Accessible.List
    Accessible.name: label

    Keys.onPressed: event => keys.handle(event)
    T.ScrollBar.vertical: SlimScrollBar {}

    WheelScroll {
        id: wheel

        view: list
    }

    ScrollKeys {
        id: keys

        wheel: wheel
    }
}
