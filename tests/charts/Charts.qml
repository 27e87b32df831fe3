// Every chart and small gauge, as the screens use them and at the ends of what they bear.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Charts
import Quillmere.Controls
import Quillmere.Theme

Rectangle {
    id: gallery

    required property list<point> train
    required property list<point> validation
    required property list<point> accuracy
    required property list<point> loss
    required property list<point> validationLoss
    required property list<point> rate
    required property list<chartBar> numbers
    required property list<chartBar> labels
    required property list<double> strip
    required property list<point> spark
    required property list<chartBar> negative
    required property list<chartBar> longLabels
    required property list<point> gap
    required property list<point> many

    component Panel: Rectangle {
        id: panel

        property string title
        default property alias content: body.data

        width: 372
        height: 248
        radius: 8
        color: Color.hex("1A1A1A")
        border.color: Color.hex("333333")

        Label {
            x: 16
            y: 14
            text: panel.title
            font: Theme.system(12, Font.Bold)
            color: Color.gray
        }

        Item {
            id: body

            anchors.fill: parent
            anchors.margins: 16
            anchors.topMargin: 40
        }
    }

    color: Theme.background

    Flow {
        anchors.fill: parent
        anchors.margins: 24
        spacing: 16

        Panel {
            title: "TRAIN VS VAL LOSS"

            LineChart {
                anchors.fill: parent

                LineSeries {
                    name: "Train"
                    color: Color.green
                    points: gallery.train
                }
                LineSeries {
                    name: "Val"
                    color: Color.yellow
                    points: gallery.validation
                }
            }
        }

        Panel {
            title: "ACCURACY CURVE"

            LineChart {
                anchors.fill: parent

                LineSeries {
                    name: "Acc"
                    color: Color.cyan
                    points: gallery.accuracy
                }
            }
        }

        Panel {
            title: "LOSS CURVES"

            LineChart {
                anchors.fill: parent
                showsXAxis: false
                smoothed: true

                LineSeries {
                    name: "Train Loss"
                    color: Color.green
                    points: gallery.loss
                }
                LineSeries {
                    name: "Val Loss"
                    color: Color.yellow
                    points: gallery.validationLoss
                }
            }
        }

        Panel {
            title: "LEARNING RATE"

            LineChart {
                anchors.fill: parent
                showsXAxis: false
                smoothed: true

                LineSeries {
                    name: "Value"
                    color: Color.purple
                    points: gallery.rate
                }
            }
        }

        Panel {
            title: "TOKEN DISTRIBUTION"

            BarChart {
                anchors.fill: parent
                bars: gallery.numbers
            }
        }

        Panel {
            title: "LABEL FREQUENCY"

            BarChart {
                anchors.fill: parent
                bars: gallery.labels
            }
        }

        Panel {
            title: "Loss Curve"
            width: 760

            StripBars {
                anchors.fill: parent
                barWidth: (width - 19 * 4) / 20
                heights: gallery.strip
                topColor: Color.faded(Theme.textPrimary, 0.1)
                bottomColor: Color.faded(Theme.textPrimary, 0.05)
            }
        }

        Panel {
            title: "GAUGES"

            Row {
                spacing: 16

                Repeater {
                    model: [0, 0.18, 0.45, 0.92]

                    RingGauge {
                        required property double modelData

                        width: 60
                        height: 60
                        fraction: modelData
                        trackColor: Color.faded(Theme.textPrimary, 0.1)
                    }
                }
            }

            Row {
                y: 80
                spacing: 16

                CompactGauge {
                    value: 82
                    maximum: 100
                    text: "82"
                    color: Color.green
                }
                CompactGauge {
                    value: 94
                    maximum: 100
                    text: "94"
                    color: Color.yellow
                }
                CompactGauge {
                    value: 320
                    maximum: 450
                    text: "320"
                    color: Color.orange
                }
                CompactGauge {
                    value: 2.1
                    maximum: 3
                    text: "2"
                    color: Color.cyan
                }
            }

            Rectangle {
                y: 154
                width: parent.width
                height: 30
                radius: 4
                color: Color.hex("111111")

                Sparkline {
                    anchors.fill: parent
                    points: gallery.spark
                }
            }
        }

        Panel {
            title: "2,000 POINTS"

            LineChart {
                anchors.fill: parent
                smoothed: true

                LineSeries {
                    color: Color.orange
                    points: gallery.many
                }
            }
        }

        Panel {
            title: "GAPS, SMALL CHANGES OF A LARGE NUMBER"

            LineChart {
                anchors.fill: parent
                smoothed: true

                LineSeries {
                    color: Color.cyan
                    points: gallery.gap
                }
            }
        }

        Panel {
            title: "BELOW ZERO"
            width: 178

            BarChart {
                anchors.fill: parent
                bars: gallery.negative
            }
        }

        Panel {
            title: "LONG LABELS"
            width: 178

            BarChart {
                anchors.fill: parent
                bars: gallery.longLabels
            }
        }

        Panel {
            title: "SMALL, EMPTY, ONE POINT"

            Grid {
                columns: 3
                spacing: 12

                Repeater {
                    model: [24, 48, 90]

                    LineChart {
                        required property int modelData

                        width: 105
                        height: modelData

                        LineSeries {
                            color: Color.green
                            points: gallery.accuracy
                        }
                    }
                }

                LineChart {
                    width: 105
                    height: 80

                    LineSeries { }
                }

                LineChart {
                    width: 105
                    height: 80

                    LineSeries {
                        color: Color.green
                        points: [Qt.point(1420, 0.55)]
                    }
                }

                BarChart {
                    width: 105
                    height: 80
                    bars: gallery.numbers
                }
            }
        }
    }
}
