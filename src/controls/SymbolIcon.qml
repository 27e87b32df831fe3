// One symbol of the icon font, drawn at a size in points.
import QtQuick
import Quillmere.Controls

Text {
    id: icon

    required property string name
    property real size: 14
    property bool bold: false

    text: SymbolTable.glyph(name)
    textFormat: Text.PlainText
    font.family: "Quillmere Symbols"
    // The glyphs stand in a box with air around them.
    font.pixelSize: Math.round(size * 1.2)
    font.weight: bold ? Font.Bold : Font.Normal
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
