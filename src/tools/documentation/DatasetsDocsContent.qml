// What a dataset looks like.
import QtQuick
import Quillmere.Theme
import Quillmere.Tools

DocPage {
    id: page

    title: qsTr("Dataset Preparation")

    DocSection {
        width: page.width
        title: qsTr("JSONL Format")

        DocText {
            width: parent.width
            text: qsTr("Your training data should be in JSONL format with each line containing a JSON object:")
            font: Theme.captionFont
        }

        CodeBlock {
            width: parent.width
            text: '{"instruction": "What is machine learning?", "response": "Machine learning is..."}\n' + '{"instruction": "Explain neural networks", "response": "Neural networks are..."}'
            tint: Theme.success
        }
    }

    DocSection {
        width: page.width
        title: qsTr("Best Practices")

        TipItem {
            width: parent.width
            text: qsTr("Aim for 100-10,000 high-quality examples")
        }

        TipItem {
            width: parent.width
            text: qsTr("Keep responses consistent in style and format")
        }

        TipItem {
            width: parent.width
            text: qsTr("Include a variety of instruction types")
        }

        TipItem {
            width: parent.width
            text: qsTr("Split data into training (80%) and validation (20%)")
        }
    }
}
