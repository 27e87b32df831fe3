// A figure of a running job under its label.
import Quillmere.Controls

CaptionedFigure {}
