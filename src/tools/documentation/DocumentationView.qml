// The documentation destination: a built-in guide of six pages. The search field is a field and nothing more.
import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Tools

Rectangle {
    id: view

    property alias searchText: search.text
    property int selectedCategory: DocumentationVocabulary.DocCategory.GettingStarted

    color: Theme.background
    onSelectedCategoryChanged: area.contentY = 0

    DocSidebar {
        id: sidebar

        width: 220
        height: view.height
        selectedCategory: view.selectedCategory
        onSelected: category => view.selectedCategory = category
    }

    Divider {
        id: divider

        anchors.left: sidebar.right
        height: view.height
        vertical: true
    }

    SearchBox {
        id: search

        anchors.left: divider.right
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 24
        padding: 12
        placeholderText: qsTr("Search documentation...")
    }

    ScrollArea {
        id: area

        anchors.left: divider.right
        anchors.right: parent.right
        anchors.top: search.bottom
        anchors.topMargin: 24
        anchors.bottom: parent.bottom
        contentHeight: page.height + 48
        Accessible.name: DocCategories.title(view.selectedCategory)

        Loader {
            id: page

            x: 24
            y: 24
            width: area.width - 48
            source: DocCategories.page(view.selectedCategory)
        }
    }
}
