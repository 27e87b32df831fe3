// A list of commands or choices below the button it is declared in: arrow keys, Return and Escape, or the mouse.
import QtQuick
import QtQuick.Templates as T
import Quillmere.Controls
import Quillmere.Theme

T.Menu {
    id: menu

    // Below its button; a click on the button is left to the button, which closes it instead of opening it anew.
    y: parent ? parent.height + 4 : 0
    margins: 8
    padding: 5
    implicitWidth: Math.max(160, contentItem.implicitWidth + leftPadding + rightPadding)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    function toggle() {
        if (opened) {
            close();
        } else {
            open();
        }
    }

    readonly property FocusReturn focusReturn: FocusReturn {
        popup: menu
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Motion.popup
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Motion.popup
        }
    }

    property bool leaving: false

    onAboutToShow: leaving = false
    onAboutToHide: leaving = true

    // While the menu fades away they take no press: something has been chosen already.
    component Rows: ListView {
        id: rows

        property bool leaving: false

        MouseArea {
            parent: rows
            anchors.fill: parent
            z: 1
            visible: rows.leaving
        }
    }

    contentItem: Rows {
        readonly property real widest: menu.widest()

        implicitWidth: widest
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: contentHeight > height
        clip: interactive
        boundsBehavior: Flickable.StopAtBounds
        leaving: menu.leaving
    }

    function widest(): real {
        let width = 0;
        for (let i = 0; i < count; ++i) {
            width = Math.max(width, itemAt(i).implicitWidth);
        }
        return width;
    }

    background: Rectangle {
        radius: 8
        color: Theme.controlBackground
        border.width: 1
        border.color: Theme.hairline
    }
}
