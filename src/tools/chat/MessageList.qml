// The conversation, which follows its end.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

CardList {
    id: list

    // Brings the last message to the lower edge, on a gentle way there from where the list is now.
    function showLast() {
        const from = contentY;
        positionViewAtEnd();
        travel.to = contentY;
        contentY = from;
        travel.restart();
    }

    spacing: 16

    delegate: ChatMessageRow {
        width: list.width
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
