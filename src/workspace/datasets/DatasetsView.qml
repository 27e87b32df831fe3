// The Datasets destination: the workspace's training files, searched, filtered, listed and uploaded.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

Rectangle {
    id: view

    property bool showFilePicker: false

    color: Theme.background

    Component.onCompleted: viewModel.loadDatasets()
    onShowFilePickerChanged: {
        if (showFilePicker) {
            viewModel.pickFile();
        }
    }

    DatasetsViewModel {
        id: viewModel

        searchText: search.text
        onSearchTextChanged: table.startOver()
        onSelectedPurposeChanged: table.startOver()
        onPickerClosed: view.showFilePicker = false
    }

    ScreenHeader {
        id: header

        width: view.width
        title: qsTr("Datasets")
        subtitle: qsTr("Upload and manage training datasets")

        PrimaryButton {
            symbol: "arrow.up.doc"
            text: qsTr("Upload Dataset")
            onClicked: view.showFilePicker = true
        }
    }

    Item {
        id: filters

        anchors.top: header.bottom
        x: 24
        width: view.width - 48
        height: search.height + 16

        SearchBox {
            id: search

            placeholderText: qsTr("Search datasets...")
        }

        PillRow {
            anchors.left: search.right
            anchors.leftMargin: 16
            anchors.verticalCenter: search.verticalCenter

            Repeater {
                model: viewModel.purposeTitles

                Pill {
                    required property int index
                    required property string modelData

                    text: modelData
                    horizontalPadding: 12
                    verticalPadding: 6
                    selected: viewModel.purposeIndex === index
                    onClicked: viewModel.purposeIndex = index
                }
            }
        }

        Row {
            anchors.right: parent.right
            anchors.verticalCenter: search.verticalCenter
            visible: viewModel.hasDatasets
            spacing: 16

            Label {
                text: viewModel.fileCount
                font: Theme.monoFont
                color: Theme.textSecondary
            }

            Label {
                text: viewModel.formattedTotalSize
                font: Theme.monoFont
                color: Theme.textTertiary
            }
        }
    }

    Item {
        anchors.top: filters.bottom
        anchors.bottom: view.bottom
        width: view.width

        Spinner {
            anchors.centerIn: parent
            visible: viewModel.isLoading
        }

        DatasetsEmptyState {
            anchors.fill: parent
            visible: !viewModel.isLoading && !viewModel.hasFilteredDatasets
            onUpload: view.showFilePicker = true
        }

        DatasetsTable {
            id: table

            anchors.fill: parent
            visible: !viewModel.isLoading && viewModel.hasFilteredDatasets
            model: viewModel.filteredDatasets
            onRemove: identifier => viewModel.removeDataset(identifier)
        }
    }
}
