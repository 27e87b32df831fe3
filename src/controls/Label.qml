// One text as it stands: never read as markup.
import QtQuick
import Quillmere.Theme

Text {
    id: label

    color: Theme.textPrimary
    font: Theme.bodyFont
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
