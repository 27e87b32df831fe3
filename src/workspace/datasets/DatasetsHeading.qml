// The heading of the table of datasets.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

DatasetColumns {
    id: columns

    component Heading: Label {
        y: 12
        font: Theme.system(11, Font.Bold)
        color: Theme.textTertiary
        elide: Text.ElideRight
        Accessible.role: Accessible.ColumnHeader
    }

    implicitHeight: name.implicitHeight + 24 + line.height

    Heading {
        id: name

        width: columns.nameWidth
        text: qsTr("FILENAME")
    }

    Heading {
        width: columns.purposeWidth
        text: qsTr("PURPOSE")
    }

    Heading {
        width: columns.sizeWidth
        text: qsTr("SIZE")
        horizontalAlignment: Text.AlignRight
    }

    Heading {
        width: columns.uploadedWidth
        text: qsTr("UPLOADED")
        horizontalAlignment: Text.AlignRight
    }

    Divider {
        id: line

        parent: columns
        y: columns.height - height
        width: columns.width
    }
}
