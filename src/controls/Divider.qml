// A line between things.
import QtQuick
import Quillmere.Theme

Rectangle {
    implicitHeight: 1
    color: Theme.border
}
