// What stands in place of the grid when there is no project to show.
import QtQuick
import Quillmere.Controls

EmptyState {
    signal createProject

    symbol: "folder.badge.plus"
    title: qsTr("No Projects Yet")
    text: qsTr("Create your first project to organize your\nfine-tuning workflows")
    buttonIcon: "plus"
    buttonText: qsTr("Create Project")
    onButtonClicked: createProject()
}
