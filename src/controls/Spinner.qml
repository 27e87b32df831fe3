// Says that something goes on whose end is not known.
import QtQuick
import Quillmere.Controls

Spokes {
    implicitWidth: 32
    implicitHeight: 32
    Accessible.role: Accessible.Indicator
    Accessible.name: qsTr("In progress")
}
