// A line of one point between two things.
import QtQuick
import Quillmere.Theme

Rectangle {
    id: divider

    property bool vertical: false

    implicitWidth: vertical ? 1 : 0
    implicitHeight: vertical ? 0 : 1
    color: Theme.border
    Accessible.ignored: true
}
