// A source of training data.
import Quillmere.Tools

ChoiceCard {
    hoverScale: 1.02
    iconSize: 20
}
