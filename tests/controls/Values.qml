// The controls that hold a value, in their states.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    color: Theme.background

    Flow {
        anchors.fill: parent
        anchors.margins: 24
        anchors.topMargin: 40
        spacing: 24

        GalleryCell {
            title: "Slider: rest, ends, hovered, pressed, focused, disabled"

            Slider {
                label: "At rest"
                value: 0.3
            }
            Slider {
                width: 80
                label: "Low"
                value: 0
            }
            Slider {
                width: 80
                label: "High"
                value: 1
            }
            Slider {
                objectName: "hovered"
                label: "Hovered"
                value: 0.5
                tint: Color.cyan
            }
            Slider {
                objectName: "pressed"
                label: "Pressed"
                value: 0.5
                tint: Color.cyan
            }
            Slider {
                objectName: "focused"
                label: "Focused"
                value: 0.6
                tint: Color.cyan
            }
            Slider {
                enabled: false
                label: "Disabled"
                value: 0.6
            }
        }

        GalleryCell {
            title: "LabeledSlider"

            LabeledSlider {
                width: 280
                title: "Max Duplicates"
                value: 5
                from: 0
                to: 20
                format: "%.1f%%"
            }
        }

        GalleryCell {
            title: "Stepper"

            Stepper {
                label: "At rest"
                value: 0
            }
            Stepper {
                objectName: "focused"
                label: "Focused"
                value: 0
            }
            Stepper {
                enabled: false
                label: "Disabled"
                value: 0
            }
        }

        GalleryCell {
            title: "SegmentedPicker: two, three, focused, disabled"

            SegmentedPicker {
                width: 100
                label: "Device"
                entries: ["GPU", "CPU"]
                currentIndex: 0
            }
            SegmentedPicker {
                label: "Truncation"
                entries: ["Start", "Middle", "End"]
                currentIndex: 0
            }
            SegmentedPicker {
                objectName: "focused"
                label: "Truncation"
                entries: ["Start", "Middle", "End"]
                currentIndex: 1
            }
            SegmentedPicker {
                enabled: false
                label: "Truncation"
                entries: ["Start", "Middle", "End"]
                currentIndex: 2
            }
        }
    }
}
