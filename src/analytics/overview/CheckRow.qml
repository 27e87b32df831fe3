// The checks side by side in one line. Where it is too short for them they give way to one another, each as far as its longest word,
// and then go on in a second line.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Analytics

Flow {
    id: row

    property alias checks: items.model

    readonly property real room: width - spacing * (items.count - 1)
    readonly property real widest: sum(item => item.implicitWidth)
    readonly property real narrowest: sum(item => item.minimumWidth)
    readonly property real tallest: most(item => item.implicitHeight)
    // From 0, each at its narrowest, to 1, each in one line.
    readonly property real ease: widest > narrowest ? Math.max(0, Math.min((room - narrowest) / (widest - narrowest), 1)) : 1

    function sum(width): real {
        let total = 0;
        for (let i = 0; i < items.count; ++i) {
            const item = items.itemAt(i) as CheckItem;
            total += item ? width(item) : 0;
        }
        return total;
    }

    function most(height): real {
        let greatest = 0;
        for (let i = 0; i < items.count; ++i) {
            const item = items.itemAt(i) as CheckItem;
            greatest = Math.max(greatest, item ? height(item) : 0);
        }
        return greatest;
    }

    spacing: 20

    Repeater {
        id: items

        CheckItem {
            required property datasetCheck modelData

            width: minimumWidth + Math.floor(row.ease * (implicitWidth - minimumWidth))
            height: row.tallest
            label: modelData.label
            status: modelData.status
        }
    }
}
