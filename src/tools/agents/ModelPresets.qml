// A menu of models beside the field for their names.
pragma ComponentBehavior: Bound

import QtQuick
import Quillmere.Controls
import Quillmere.Theme

IconButton {
    id: button

    signal picked(model: string)

    width: 28
    height: 28
    symbol: "chevron.up.chevron.down"
    size: 12
    label: qsTr("Model Presets")
    fillColor: Color.hex("2A2A2A")
    radius: 6
    Accessible.role: Accessible.ButtonMenu
    onClicked: menu.toggle()

    Menu {
        id: menu

        Repeater {
            model: ["GPT-4", "GPT-4 Turbo", "Claude 3 Opus", "Claude 3 Sonnet", "Llama 3 70B", "Mixtral 8x7B"]

            MenuItem {
                required property string modelData

                text: modelData
                onTriggered: button.picked(modelData)
            }
        }
    }
}
