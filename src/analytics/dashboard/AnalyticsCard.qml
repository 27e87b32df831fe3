// A card of the analytics screens' own look.
import Quillmere.Analytics
import Quillmere.Controls

Card {
    radius: 8
    color: AnalyticsPalette.card
    strokeColor: AnalyticsPalette.cardStroke
}
