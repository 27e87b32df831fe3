// The Models destination: the service's base models in a grid, a search over them, and a filter.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

Rectangle {
    id: view

    color: Theme.background

    Component.onCompleted: viewModel.loadModels()

    ModelsViewModel {
        id: viewModel

        searchText: search.text
        onSearchTextChanged: grid.startOver()
        onSelectedFilterChanged: grid.startOver()
    }

    ScreenHeader {
        id: header

        width: view.width
        title: qsTr("Models")
        subtitle: qsTr("Browse and download pre-trained models for fine-tuning")

        Rectangle {
            visible: viewModel.hasDownloadedModels
            width: Math.ceil(chip.width) + 24
            height: Math.ceil(chip.height) + 12
            radius: 8
            color: Theme.surface

            Row {
                id: chip

                anchors.centerIn: parent
                spacing: 6

                SymbolIcon {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "checkmark.circle.fill"
                    size: 12
                    color: Theme.success
                }

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: viewModel.downloadedText
                    font: Theme.captionFont
                    color: Theme.textSecondary
                }
            }
        }
    }

    SearchBox {
        id: search

        anchors.top: header.bottom
        x: 24
        width: Math.max(0, Math.min(300, view.width - 64 - filters.width))
        placeholderText: qsTr("Search models...")
    }

    PillRow {
        id: filters

        anchors.left: search.right
        anchors.leftMargin: 16
        anchors.verticalCenter: search.verticalCenter

        Repeater {
            model: [ModelsVocabulary.All, ModelsVocabulary.Supported, ModelsVocabulary.Downloaded]

            Pill {
                required property int modelData

                horizontalPadding: 12
                verticalPadding: 6
                text: viewModel.filterTitle(modelData)
                selected: viewModel.selectedFilter === modelData
                onClicked: viewModel.selectedFilter = modelData
            }
        }
    }

    Item {
        id: body

        readonly property bool isSettled: !viewModel.isLoading && !viewModel.hasFailed

        anchors.top: search.bottom
        anchors.topMargin: 16
        anchors.bottom: view.bottom
        width: view.width

        Spinner {
            anchors.centerIn: parent
            visible: viewModel.isLoading
        }

        ModelsErrorState {
            anchors.fill: parent
            visible: !viewModel.isLoading && viewModel.hasFailed
            message: viewModel.failureText
            onRetry: viewModel.loadModels()
        }

        ModelsEmptyState {
            anchors.fill: parent
            visible: body.isSettled && !viewModel.hasFilteredModels
        }

        CardGrid {
            id: grid

            anchors.fill: parent
            visible: body.isSettled && viewModel.hasFilteredModels
            model: viewModel.filteredModels
            columns: 2
            cardHeight: 280
            accessibleName: qsTr("Models")

            delegate: ModelCatalogCard {
                id: card

                width: grid.cardWidth
                height: grid.cardHeight
                onDownload: viewModel.downloadModel(identifier)
                GridView.onPooled: grid.retire(card)
                GridView.onReused: visible = true
            }
        }
    }
}
