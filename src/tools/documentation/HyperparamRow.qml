// One hyperparameter: its name, what it usually is, and what it does.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Item {
    id: row

    required property string name
    required property string typical
    required property string description

    implicitHeight: explanation.y + explanation.height
    Accessible.role: Accessible.StaticText
    Accessible.name: name + ", " + typical + ", " + description

    Label {
        id: nameLabel

        width: row.width - typicalLabel.width - 16
        text: row.name
        font: Theme.monoFont
        color: "white"
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    Label {
        id: typicalLabel

        anchors.right: parent.right
        text: row.typical
        font: Theme.monoFont
        color: Theme.accent
        Accessible.ignored: true
    }

    Label {
        id: explanation

        y: nameLabel.height + 4
        width: row.width
        text: row.description
        font: Theme.system(11)
        color: Theme.textTertiary
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
