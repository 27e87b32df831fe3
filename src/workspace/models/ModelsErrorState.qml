// What stands in place of the grid after a load or a download that failed.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

EmptyState {
    id: state_

    required property string message

    signal retry

    symbol: "exclamationmark.triangle"
    symbolColor: Theme.error
    title: qsTr("Failed to Load Models")
    text: message
    buttonIcon: "arrow.clockwise"
    buttonText: qsTr("Retry")
    onButtonClicked: retry()
}
