// Where the user stands among the steps. The lines between them share the width that is left.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Tools

Row {
    id: indicator

    required property list<string> steps
    required property int currentStep

    readonly property real marksWidth: {
        let sum = 0;
        for (let i = 0; i < marks.count; ++i) {
            sum += (marks.itemAt(i) as StepMark)?.ownWidth ?? 0;
        }
        return sum;
    }
    readonly property int connectors: Math.max(1, steps.length - 1)
    // Each connector keeps 8 points free at both ends, beside the spacing.
    readonly property real connectorWidth: Math.max(0, Math.floor((width - marksWidth) / connectors) - 2 * spacing - 16)

    spacing: 12

    Repeater {
        id: marks

        model: indicator.steps

        StepMark {
            required property int index
            required property string modelData

            step: index
            label: modelData
            currentStep: indicator.currentStep
            hasConnector: index < indicator.steps.length - 1
            connectorWidth: indicator.connectorWidth
        }
    }
}
