// Which models can be fine-tuned, and which to take.
import QtQuick
import Quillmere.Tools

DocPage {
    id: page

    title: qsTr("Models Overview")

    DocSection {
        width: page.width
        title: qsTr("Supported Models")

        DocText {
            width: parent.width
            text: qsTr("Quillmere Studio supports fine-tuning various open-source LLMs including Llama 3, Mistral, Phi-3, Gemma, and Qwen families.")
        }
    }

    DocSection {
        width: page.width
        title: qsTr("Model Selection Guide")

        TipItem {
            width: parent.width
            text: qsTr("7B-8B models: Good balance of quality and speed")
        }

        TipItem {
            width: parent.width
            text: qsTr("13B-14B models: Better reasoning, needs more VRAM")
        }

        TipItem {
            width: parent.width
            text: qsTr("70B+ models: Best quality, requires multi-GPU or cloud")
        }
    }
}
