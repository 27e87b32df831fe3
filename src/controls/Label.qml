// One text, shown letter for letter: nothing in it is taken for markup.
import QtQuick
import Quillmere.Theme

Text {
    textFormat: Text.PlainText
    color: Theme.textPrimary
    font: Theme.bodyFont
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
