// What a step of the sign-in is called and asks for.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Column {
    id: header

    required property string title
    required property string subtitle

    spacing: 8
    bottomPadding: 20

    Label {
        text: header.title
        font: Theme.system(24, Font.Bold)
        color: "white"
        Accessible.role: Accessible.Heading
    }

    Label {
        text: header.subtitle
        font: Theme.system(14)
        color: Color.gray
    }
}
