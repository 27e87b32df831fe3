// The panel "DATA CONTROLS" beside the dataset's figures. Its controls hold their own values, which nothing reads.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: view

    implicitWidth: 320
    color: AnalyticsPalette.panel

    DataThresholdControlState {
        id: thresholds
    }

    ScrollArea {
        anchors.fill: parent
        contentHeight: sections.height + 40
        Accessible.name: qsTr("Data controls")

        Column {
            id: sections

            x: 20
            y: 20
            width: parent.width - 40
            spacing: 24

            Row {
                spacing: 6

                SymbolIcon {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "slider.horizontal.3"
                    size: 12
                    bold: true
                    color: Color.gray
                }

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("DATA CONTROLS")
                    font: Theme.monospaced(12, Font.Black)
                    color: Color.gray
                    Accessible.role: Accessible.Heading
                }
            }

            ControlSection {
                width: sections.width
                title: qsTr("TOKEN LIMITS")
                contentSpacing: 16

                LabeledSlider {
                    width: sections.width
                    title: qsTr("Min Tokens")
                    value: thresholds.minTokens
                    from: 0
                    to: 100
                    format: "%.0f"
                    onMoved: value => thresholds.minTokens = value
                }

                LabeledSlider {
                    width: sections.width
                    title: qsTr("Max Tokens")
                    value: thresholds.maxTokens
                    from: 512
                    to: 8192
                    format: "%.0f"
                    onMoved: value => thresholds.maxTokens = value
                }
            }

            Divider {
                width: sections.width
                color: AnalyticsPalette.cardStroke
            }

            ControlSection {
                width: sections.width
                title: qsTr("QUALITY FILTERS")
                contentSpacing: 16

                LabeledSlider {
                    width: sections.width
                    title: qsTr("Max Duplicates")
                    value: thresholds.duplicateThreshold
                    from: 0
                    to: 20
                    format: "%.1f%%"
                    onMoved: value => thresholds.duplicateThreshold = value
                }

                LabeledSlider {
                    width: sections.width
                    title: qsTr("Min Quality Score")
                    value: thresholds.qualityScoreMin
                    from: 0
                    to: 1
                    format: "%.2f"
                    onMoved: value => thresholds.qualityScoreMin = value
                }

                LabeledSlider {
                    width: sections.width
                    title: qsTr("Max Imbalance")
                    value: thresholds.maxLabelImbalance
                    from: 1
                    to: 10
                    format: "%.1f:1"
                    onMoved: value => thresholds.maxLabelImbalance = value
                }
            }

            Divider {
                width: sections.width
                color: AnalyticsPalette.cardStroke
            }

            ControlSection {
                width: sections.width
                title: qsTr("PREPROCESSING")

                ToggleRow {
                    width: sections.width
                    title: qsTr("Remove Outliers")
                    isOn: thresholds.removeOutliers
                    onToggled: thresholds.removeOutliers = !thresholds.removeOutliers
                }

                ToggleRow {
                    width: sections.width
                    title: qsTr("Normalize Text")
                    isOn: thresholds.normalizeText
                    onToggled: thresholds.normalizeText = !thresholds.normalizeText
                }

                ToggleRow {
                    width: sections.width
                    title: qsTr("Stopword Filter")
                    isOn: thresholds.applyStopwords
                    onToggled: thresholds.applyStopwords = !thresholds.applyStopwords
                }
            }

            Divider {
                width: sections.width
                color: AnalyticsPalette.cardStroke
            }

            ControlSection {
                width: sections.width
                title: qsTr("TRUNCATION")

                SegmentedPicker {
                    width: sections.width
                    label: qsTr("Truncation")
                    entries: [qsTr("Start"), qsTr("Middle"), qsTr("End")]
                    currentIndex: thresholds.truncationStrategy
                    onPicked: index => thresholds.truncationStrategy = index
                }
            }

            Divider {
                width: sections.width
                color: AnalyticsPalette.cardStroke
            }

            ControlSection {
                width: sections.width
                title: qsTr("DATASET SIZE LIMIT")

                Item {
                    width: sections.width
                    height: stepper.height

                    Label {
                        anchors.verticalCenter: parent.verticalCenter
                        text: qsTr("%1 rows").arg(Format.whole("%lld", thresholds.datasetLimit))
                        font: Theme.monospaced(12)
                        color: Color.cyan
                    }

                    Stepper {
                        id: stepper

                        anchors.right: parent.right
                        label: qsTr("Dataset size limit")
                        value: thresholds.datasetLimit
                        stepSize: thresholds.datasetLimitStep
                        onStepped: direction => thresholds.stepDatasetLimit(direction)
                    }
                }
            }
        }
    }

    Divider {
        height: view.height
        vertical: true
        color: AnalyticsPalette.cardStroke
    }
}
