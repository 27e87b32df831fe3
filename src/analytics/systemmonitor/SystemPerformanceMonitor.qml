// Four gauges and a curve, none of which measures anything.
import QtQuick

Item {}
