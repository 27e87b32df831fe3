// A base model.
import QtQuick
import Quillmere.Tools

ChoiceCard {
    id: card

    required property int model
    property bool isRecommended: false

    title: FineTuningCards.modelName(model)
    description: FineTuningCards.modelDescription(model)
    badge: isRecommended ? qsTr("RECOMMENDED") : ""
    titleSize: 15
}
