// The first page: four steps to a first model.
import QtQuick
import Quillmere.Tools

DocPage {
    id: page

    title: qsTr("Getting Started")

    DocText {
        width: page.width
        text: qsTr("Welcome to Quillmere Studio! This guide will help you get up and running with fine-tuning your first model.")
    }

    QuickStartCard {
        width: page.width
        step: 1
        title: qsTr("Download a Base Model")
        description: qsTr("Browse the Models tab and download a pre-trained model like Llama 3 or Mistral.")
        icon: "arrow.down.circle"
    }

    QuickStartCard {
        width: page.width
        step: 2
        title: qsTr("Prepare Your Dataset")
        description: qsTr("Upload your training data in JSONL format with instruction/response pairs.")
        icon: "doc.text"
    }

    QuickStartCard {
        width: page.width
        step: 3
        title: qsTr("Configure Training")
        description: qsTr("Set your hyperparameters or use the wizard for automatic configuration.")
        icon: "slider.horizontal.3"
    }

    QuickStartCard {
        width: page.width
        step: 4
        title: qsTr("Start Fine-Tuning")
        description: qsTr("Launch the training job and monitor progress in real-time.")
        icon: "play.fill"
    }

    DocSection {
        width: page.width
        title: qsTr("Tips for Success")

        TipItem {
            width: parent.width
            text: qsTr("Start with a smaller model (7B-8B parameters) for faster iteration")
        }

        TipItem {
            width: parent.width
            text: qsTr("Use QLoRA for memory-efficient fine-tuning on consumer GPUs")
        }

        TipItem {
            width: parent.width
            text: qsTr("Ensure your dataset has at least 100+ high-quality examples")
        }

        TipItem {
            width: parent.width
            text: qsTr("Monitor validation loss to prevent overfitting")
        }
    }
}
