// A figure of a model under its label.
import Quillmere.Controls

CaptionedFigure {}
