// What stands in place of the grid when no model passes search and filter.
import Quillmere.Controls

EmptyState {
    symbol: "cpu"
    title: qsTr("No Models Found")
    text: qsTr("Try adjusting your search or filters")
}
