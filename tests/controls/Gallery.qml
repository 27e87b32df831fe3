// The shared controls in their states, side by side. The program that shows them moves the pointer and the keyboard.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: gallery

    color: Theme.background

    Flow {
        anchors.fill: parent
        anchors.margins: 24
        anchors.topMargin: 40
        spacing: 24

        GalleryCell {
            title: "PrimaryButton: rest, hovered, pressed, focused, disabled, busy"

            PrimaryButton {
                symbol: "plus"
                text: "New Training"
            }
            PrimaryButton {
                objectName: "hovered"
                text: "Hovered"
            }
            PrimaryButton {
                objectName: "pressed"
                text: "Pressed"
            }
            PrimaryButton {
                objectName: "focused"
                text: "Focused"
            }
            PrimaryButton {
                enabled: false
                text: "Verify & Create"
            }
            PrimaryButton {
                busy: true
                enabled: false
                busyText: "Downloading..."
            }
        }

        GalleryCell {
            title: "SecondaryButton"

            SecondaryButton {
                text: "Cancel"
            }
            SecondaryButton {
                objectName: "hovered"
                text: "Hovered"
            }
            SecondaryButton {
                objectName: "pressed"
                text: "Pressed"
            }
            SecondaryButton {
                objectName: "focused"
                text: "Focused"
            }
            SecondaryButton {
                enabled: false
                text: "Disabled"
            }
        }

        GalleryCell {
            title: "BorderedButton, ProminentButton"

            BorderedButton {
                text: "Export Report"
            }
            BorderedButton {
                objectName: "hovered"
                symbol: "ladybug.fill"
                text: "Debug"
            }
            BorderedButton {
                enabled: false
                text: "Disabled"
            }
            ProminentButton {
                symbol: "plus"
                text: "New Deployment"
            }
            ProminentButton {
                objectName: "focused"
                tint: Color.green
                text: "Run Agent"
                font: Theme.system(12, Font.DemiBold)
            }
            ProminentButton {
                tint: Color.red
                enabled: false
                text: "Disabled"
            }
        }

        GalleryCell {
            title: "PlainButton, IconButton"

            PlainButton {
                text: "← Back to Email"
            }
            PlainButton {
                objectName: "focused"
                text: "Focused"
            }
            IconButton {
                symbol: "stop.circle"
                label: "Cancel"
                color: Theme.error
            }
            IconButton {
                objectName: "hovered"
                symbol: "arrow.right.circle"
                label: "Details"
                color: Theme.textSecondary
            }
            IconButton {
                objectName: "focused"
                symbol: "trash"
                label: "Delete"
            }
            IconButton {
                enabled: false
                symbol: "doc.on.doc"
                label: "Copy"
            }
        }

        GalleryCell {
            title: "Pill: plain, selected, hovered, focused"

            PillRow {
                Pill {
                    selected: true
                    text: "All"
                }
                Pill {
                    text: "Running"
                }
                Pill {
                    objectName: "hovered"
                    text: "Completed"
                }
                Pill {
                    objectName: "focused"
                    text: "Failed"
                }
            }
        }

        GalleryCell {
            title: "Badge"

            Badge {
                text: "RUNNING"
                tint: Theme.success
            }
            Badge {
                text: "Completed"
                tint: Theme.accent
                font: Theme.system(11, Font.Bold)
                horizontalPadding: 10
                verticalPadding: 5
            }
            Badge {
                text: "FAILED"
                tint: Theme.error
            }
        }

        GalleryCell {
            title: "Switch: regular, small, disabled"

            Switch {}
            Switch {
                checked: true
            }
            Switch {
                objectName: "focused"
                checked: true
                tint: Color.cyan
                text: "Performance Mode"
            }
            Switch {
                small: true
                text: "Full Telemetry"
            }
            Switch {
                small: true
                checked: true
                text: "Fast Eval Mode"
            }
            Switch {
                enabled: false
                checked: true
            }
        }

        GalleryCell {
            title: "ProgressBar, Spinner"

            ProgressBar {
                width: 120
                value: 0
            }
            ProgressBar {
                width: 80
                value: 0.67
                tint: Theme.success
            }
            ProgressBar {
                width: 100
                value: 0.03
            }
            ProgressBar {
                width: 100
                value: 1
                tint: Theme.error
            }
            Spinner {}
            Spinner {
                width: 20
                height: 20
                color: Theme.textSecondary
            }
            Spinner {
                width: 16
                height: 16
            }
        }

        GalleryCell {
            title: "SearchBox, RoundedField, PlainField"

            SearchBox {
                placeholderText: "Search models..."
            }
            SearchBox {
                padding: 12
                text: "llama"
                placeholderText: "Search projects..."
            }
            RoundedField {
                label: "Name"
                placeholderText: "Node Name"
            }
            RoundedField {
                objectName: "field"
                label: "Name"
                text: "Typed text"
            }
            RoundedField {
                label: "Secret"
                secret: true
                text: "hidden"
            }
        }

        Card {
            width: 300
            height: 120
            hoverStrokeColor: Color.faded(Theme.accent, 0.5)

            Column {
                anchors.fill: parent
                anchors.margins: 16
                spacing: 12

                Label {
                    text: "Card"
                    font: Theme.headingFont
                }
                Divider {
                    width: parent.width
                }
                Label {
                    width: parent.width
                    elide: Text.ElideRight
                    text: "A very long line that does not fit the width of its card"
                    color: Theme.textSecondary
                }
            }
        }

        Card {
            objectName: "hovered"
            width: 300
            height: 120
            hoverStrokeColor: Color.faded(Theme.accent, 0.5)

            GrowingField {
                anchors.fill: parent
                anchors.margins: 12
                label: "Description"
                placeholderText: "Optional description..."
                minimumLines: 3
                text: "One\nTwo\nThree"
            }
        }

        Rectangle {
            width: 300
            height: 120
            radius: 8
            color: Theme.sidebarBackground

            ScrollArea {
                id: scroll

                objectName: "hovered"
                anchors.fill: parent
                contentHeight: lines.height

                Column {
                    id: lines

                    x: 12

                    Repeater {
                        model: 20

                        Label {
                            required property int index

                            text: "Line " + index
                            color: Theme.textSecondary
                        }
                    }
                }
            }
        }

        EmptyState {
            width: 400
            height: 260
            symbol: "terminal"
            title: "No Training Jobs"
            text: "Start fine-tuning a model with your dataset"
            buttonIcon: "sparkles"
            buttonText: "Start Training"
        }
    }
}
