// What stands in place of the list when no job passes the filter.
import QtQuick
import Quillmere.Controls

EmptyState {
    signal startTraining

    symbol: "terminal"
    title: qsTr("No Training Jobs")
    text: qsTr("Start fine-tuning a model with your dataset")
    buttonIcon: "sparkles"
    buttonText: qsTr("Start Training")
    onButtonClicked: startTraining()
}
