// A slider of the run under its label, with its value by a printf format beside it.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

ControlGroup {
    id: group

    required property real value
    required property real from
    required property real to
    required property string format

    signal moved(value: real)

    Slider {
        id: slider

        anchors.left: parent.left
        anchors.right: figure.left
        anchors.rightMargin: 12
        label: group.label
        value: group.value
        from: group.from
        to: group.to
        tint: Color.cyan
        onMoved: value => group.moved(value)
    }

    Label {
        id: figure

        anchors.right: parent.right
        anchors.verticalCenter: slider.verticalCenter
        // As wide for every value, so that the sliders are of one length and keep it while they are dragged.
        width: widest.width
        horizontalAlignment: Text.AlignRight
        text: Format.real(group.format, group.value)
        font: Theme.monospaced(11)
        color: Color.cyan
    }

    TextMetrics {
        id: widest

        text: "0.00000"
        font: figure.font
    }
}
