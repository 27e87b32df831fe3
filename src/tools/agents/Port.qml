// Where lines come in or go out.
import QtQuick
import Quillmere.Theme
import Quillmere.Tools

Plate {
    anchors.verticalCenter: parent.verticalCenter
    width: 8
    height: 8
    radius: 4
    color: Color.gray
}
