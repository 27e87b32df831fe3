// How far a version of the registry is from its users.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Badge {
    required property int status

    text: {
        switch (status) {
        case DeploymentVocabulary.ModelStatus.Active:
            return qsTr("LIVE");
        case DeploymentVocabulary.ModelStatus.Ready:
            return qsTr("READY");
        default:
            return qsTr("ARCHIVED");
        }
    }
    tint: {
        switch (status) {
        case DeploymentVocabulary.ModelStatus.Active:
            return Color.green;
        case DeploymentVocabulary.ModelStatus.Ready:
            return Color.cyan;
        default:
            return Color.gray;
        }
    }
    font: Theme.system(9, Font.Bold)
    horizontalPadding: 6
    verticalPadding: 2
    radius: 2
    fillOpacity: 0.2
}
