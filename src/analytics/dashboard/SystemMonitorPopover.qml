// The system monitor, made anew each time it opens.
import QtQuick
import Quillmere.Analytics
import Quillmere.Controls

Popover {
    id: popover

    contentWidth: 320
    contentHeight: 280

    contentItem: Loader {
        active: popover.visible
        sourceComponent: SystemPerformanceMonitor {
            topRadius: 9
        }
    }
}
