// The overview tab: a picture of the dataset, and beside it how it should be filtered. Its figures never change; the token
// distribution does with every change of the run's.
import QtQuick
import Quillmere.Analytics
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: view

    OverviewState {
        id: overview
    }

    ScrollArea {
        anchors.left: view.left
        anchors.right: panel.left
        height: view.height
        contentHeight: page.height + 48
        Accessible.name: qsTr("Dataset analytics")

        Column {
            id: page

            x: 24
            y: 24
            width: parent.width - 48
            spacing: 24

            Item {
                width: page.width
                height: title.height

                Label {
                    id: title

                    anchors.left: parent.left
                    anchors.right: updated.left
                    anchors.rightMargin: 16
                    text: qsTr("DATASET ANALYTICS")
                    font: Theme.system(24, Font.Bold)
                    color: "white"
                    elide: Text.ElideRight
                    Accessible.role: Accessible.Heading
                }

                Label {
                    id: updated

                    anchors.right: parent.right
                    anchors.baseline: title.baseline
                    text: qsTr("Last Updated: 12:45 PM")
                    font: Theme.system(12)
                    color: Color.gray
                }
            }

            FlexibleGrid {
                width: page.width
                minimumColumnWidth: 160
                spacing: 16

                OverviewSummaryCard {
                    title: qsTr("TOTAL SAMPLES")
                    value: overview.totalSamples
                    icon: "doc.text.fill"
                    tint: Color.blue
                }

                OverviewSummaryCard {
                    title: qsTr("TOTAL TOKENS")
                    value: AnalyticsDataManager.totalTokens
                    icon: "text.quote"
                    tint: Color.purple
                }

                OverviewSummaryCard {
                    title: qsTr("VOCAB SIZE")
                    value: AnalyticsDataManager.vocabSize
                    icon: "character.book.closed.fill"
                    tint: Color.orange
                }

                OverviewSummaryCard {
                    title: qsTr("DUPLICATES")
                    value: AnalyticsDataManager.duplicatesPercentage
                    icon: "doc.on.doc.fill"
                    tint: Color.red
                }

                OverviewSummaryCard {
                    title: qsTr("AVG LENGTH")
                    value: overview.avgLength
                    icon: "ruler.fill"
                    tint: Color.cyan
                }

                OverviewSummaryCard {
                    title: qsTr("QUALITY SCORE")
                    value: Format.real("%.2f", AnalyticsDataManager.qualityScore)
                    icon: "star.fill"
                    tint: Color.green
                }
            }

            FlexibleGrid {
                width: page.width
                columns: 2
                spacing: 16

                ChartCard {
                    padding: 16
                    symbol: "chart.bar.fill"
                    title: qsTr("TOKEN DISTRIBUTION")

                    BarChart {
                        width: parent.width
                        height: 200
                        bars: overview.tokenDistribution
                    }
                }

                ChartCard {
                    padding: 16
                    symbol: "chart.pie.fill"
                    title: qsTr("LABEL FREQUENCY")

                    BarChart {
                        width: parent.width
                        height: 200
                        bars: overview.labelFrequency
                    }
                }
            }

            ChartCard {
                width: page.width
                padding: 20
                symbol: "checkmark.shield.fill"
                title: qsTr("CONSISTENCY CHECKS")

                CheckRow {
                    width: parent.width
                    checks: overview.checks
                }
            }
        }
    }

    DataThresholdControlView {
        id: panel

        anchors.right: view.right
        width: 320
        height: view.height
    }
}
