// The tabs of the analytics dashboard, each an equal share of the width. The arrow keys go from one to the next.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Analytics
import Quillmere.Controls

Rectangle {
    id: strip

    required property int selectedTab

    signal selected(int tab)

    // From the tab that has the keyboard.
    function go(step) {
        for (let i = 0; i < tabs.count; ++i) {
            const next = tabs.itemAt(i + step) as AnalyticsTabButton;
            if (tabs.itemAt(i).activeFocus && next) {
                next.forceActiveFocus(Qt.TabFocusReason);
                next.press();
                return;
            }
        }
    }

    implicitHeight: row.height
    color: AnalyticsPalette.strip
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Analytics")
    Keys.onLeftPressed: go(-1)
    Keys.onRightPressed: go(1)

    Row {
        id: row

        Repeater {
            id: tabs

            model: StudioAnalyticsTab.allCases

            AnalyticsTabButton {
                required property int index
                required property int modelData

                // To whole points, so that no edge lies between two.
                width: Math.round((index + 1) * strip.width / tabs.count) - Math.round(index * strip.width / tabs.count)
                text: StudioAnalyticsTab.title(modelData)
                selected: strip.selectedTab === modelData
                onClicked: strip.selected(modelData)
            }
        }
    }

    Divider {
        anchors.bottom: parent.bottom
        width: parent.width
        color: AnalyticsPalette.line
    }
}
