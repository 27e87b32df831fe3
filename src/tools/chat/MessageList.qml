// The conversation, which follows its end.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

CardList {
    id: list

    // Brings the last message to the lower edge, on a gentle way there from where the list is now; from far away only the last of
    // the way is gone, since each row on it would have to be made.
    function showLast() {
        const from = contentY;
        positionViewAtEnd();
        travel.to = contentY;
        contentY = Math.max(from, travel.to - 3 * height);
        travel.restart();
    }

    spacing: 16

    delegate: ChatMessageRow {
        id: row

        width: list.width
        ListView.onPooled: list.retire(row)
        ListView.onReused: visible = true
    }

    NumberAnimation {
        id: travel

        target: list
        property: "contentY"
        duration: Motion.standard
        easing.type: Easing.InOutQuad
        // The heights of rows that the way leads past are guesses until then.
        onFinished: list.positionViewAtEnd()
    }
}
