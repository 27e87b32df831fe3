// What the model is trained for.
import Quillmere.Tools

ChoiceCard {
    id: card

    required property int goal

    title: FineTuningCards.goalTitle(goal)
    description: FineTuningCards.goalDescription(goal)
    icon: FineTuningCards.goalIcon(goal)
    color: FineTuningCards.goalColor(goal)
    textSpacing: 2
}
