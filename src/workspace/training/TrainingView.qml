// The Training destination: the user's fine-tuning jobs, counted, filtered and listed.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme
import Quillmere.Workspace

Rectangle {
    id: view

    property bool showNewTrainingSheet: false

    color: Theme.background

    Component.onCompleted: viewModel.loadJobs()

    TrainingViewModel {
        id: viewModel

        onSelectedFilterChanged: list.startOver()
    }

    ScreenHeader {
        id: header

        width: view.width
        title: qsTr("Training")
        subtitle: qsTr("Monitor and manage your fine-tuning jobs")

        PrimaryButton {
            symbol: "plus"
            text: qsTr("New Training")
            onClicked: view.showNewTrainingSheet = true
        }
    }

    FlexibleGrid {
        id: stats

        anchors.top: header.bottom
        x: 24
        width: view.width - 48
        columns: 3
        spacing: 16

        TrainingStatCard {
            title: qsTr("Active Jobs")
            value: viewModel.activeCount
            icon: "play.circle.fill"
            tint: Theme.success
        }

        TrainingStatCard {
            title: qsTr("Completed")
            value: viewModel.completedCount
            icon: "checkmark.circle.fill"
            tint: Theme.accent
        }

        TrainingStatCard {
            title: qsTr("Total Jobs")
            value: viewModel.totalCount
            icon: "chart.bar.fill"
            tint: Theme.purple
        }
    }

    PillRow {
        id: filters

        anchors.top: stats.bottom
        anchors.topMargin: 20
        x: 24

        Repeater {
            model: [TrainingVocabulary.All, TrainingVocabulary.Running, TrainingVocabulary.Completed, TrainingVocabulary.Failed]

            Pill {
                required property int modelData

                text: viewModel.filterTitle(modelData)
                selected: viewModel.selectedFilter === modelData
                onClicked: viewModel.selectedFilter = modelData
            }
        }
    }

    Item {
        id: body

        anchors.top: filters.bottom
        anchors.topMargin: 16
        anchors.bottom: view.bottom
        width: view.width

        Spinner {
            anchors.centerIn: parent
            visible: viewModel.isLoading
        }

        TrainingEmptyState {
            anchors.fill: parent
            visible: !viewModel.isLoading && !viewModel.hasFilteredJobs
            onStartTraining: view.showNewTrainingSheet = true
        }

        CardList {
            id: list

            anchors.fill: parent
            visible: !viewModel.isLoading && viewModel.hasFilteredJobs
            model: viewModel.filteredJobs
            accessibleName: qsTr("Training jobs")

            delegate: TrainingJobCard {
                id: job

                width: ListView.view.width - 48
                x: 24
                onCancel: viewModel.cancelJob(identifier)
                ListView.onPooled: list.retire(job)
                ListView.onReused: visible = true
            }
        }
    }

    NewTrainingSheet {
        visible: view.showNewTrainingSheet
        onClosed: view.showNewTrainingSheet = false
    }
}
