// The validation tab: a picture of the run's results. All on it is constant, and the report is exported nowhere.
import QtQuick
import Quillmere.Analytics
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

ScrollArea {
    id: view

    contentHeight: page.height + 48
    Accessible.name: qsTr("Validation results")

    Column {
        id: page

        x: 24
        y: 24
        width: view.width - 48
        spacing: 24

        Item {
            width: page.width
            height: Math.max(head.height, exportReport.height)

            Row {
                id: head

                anchors.verticalCenter: parent.verticalCenter
                spacing: 8

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("VALIDATION RESULTS")
                    font: Theme.system(24, Font.Bold)
                    color: "white"
                    Accessible.role: Accessible.Heading
                }

                StatusBadge {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("STABLE")
                    tint: Color.green
                }

                StatusBadge {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("NO OVERFIT")
                    tint: Color.cyan
                }

                StatusBadge {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("F1: 0.92")
                    tint: Color.purple
                }
            }

            BorderedButton {
                id: exportReport

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("Export Report")
                tint: "white"
            }
        }

        FlexibleGrid {
            width: page.width
            columns: 2
            spacing: 16

            ChartCard {
                title: qsTr("TRAIN VS VAL LOSS")

                LineChart {
                    width: parent.width
                    height: 200

                    LineSeries {
                        name: qsTr("Train")
                        color: Color.green
                        points: ValidationCurves.trainLoss
                    }

                    LineSeries {
                        name: qsTr("Val")
                        color: Color.yellow
                        points: ValidationCurves.validationLoss
                    }
                }
            }

            ChartCard {
                title: qsTr("ACCURACY CURVE")

                LineChart {
                    width: parent.width
                    height: 200

                    LineSeries {
                        name: qsTr("Acc")
                        color: Color.cyan
                        points: ValidationCurves.accuracy
                    }
                }
            }
        }

        ChartCard {
            width: page.width
            title: qsTr("CONFUSION MATRIX")

            ConfusionMatrix {
                width: parent.width
            }
        }
    }
}
