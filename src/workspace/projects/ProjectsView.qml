// The Projects destination: the user's projects in a grid, a search over them, and a sheet that makes another.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

Rectangle {
    id: view

    property bool showNewProjectSheet: false
    property alias searchText: search.text

    color: Theme.background

    Component.onCompleted: viewModel.loadProjects()

    ProjectsViewModel {
        id: viewModel

        searchText: search.text
        onSearchTextChanged: grid.startOver()
    }

    ScreenHeader {
        id: header

        width: view.width
        title: qsTr("Projects")
        subtitle: qsTr("Manage your fine-tuning projects and workspaces")

        PrimaryButton {
            symbol: "plus"
            text: qsTr("New Project")
            onClicked: view.showNewProjectSheet = true
        }
    }

    SearchBox {
        id: search

        anchors.top: header.bottom
        x: 24
        width: view.width - 48
        padding: 12
        placeholderText: qsTr("Search projects...")
    }

    Item {
        anchors.top: search.bottom
        anchors.topMargin: 20
        anchors.bottom: view.bottom
        width: view.width

        Spinner {
            anchors.centerIn: parent
            visible: viewModel.isLoading
        }

        ProjectsEmptyState {
            anchors.fill: parent
            visible: !viewModel.isLoading && !viewModel.hasFilteredProjects
            onCreateProject: view.showNewProjectSheet = true
        }

        CardGrid {
            id: grid

            anchors.fill: parent
            visible: !viewModel.isLoading && viewModel.hasFilteredProjects
            model: viewModel.filteredProjects
            columns: 3
            cardHeight: 200
            stepsThroughCards: false
            accessibleName: qsTr("Projects")

            delegate: ProjectCard {
                id: card

                width: grid.cardWidth
                height: grid.cardHeight
                GridView.onPooled: grid.retire(card)
                GridView.onReused: visible = true
            }
        }
    }

    Sheet {
        visible: view.showNewProjectSheet
        contentWidth: 500
        contentHeight: 400
        title: qsTr("Create New Project")
        onAboutToHide: view.showNewProjectSheet = false

        content: NewProjectSheet {
            onCreate: (name, description) => {
                // Not again while the sheet fades away.
                if (view.showNewProjectSheet) {
                    viewModel.createProject(name, description);
                }
            }
            onDismiss: view.showNewProjectSheet = false
        }
    }
}
