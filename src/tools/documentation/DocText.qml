// A paragraph of the documentation.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme

Label {
    font: Theme.bodyFont
    color: Theme.textSecondary
    wrapMode: Text.Wrap
}
