// What fine-tuning is, its methods and its figures.
import QtQuick
import Quillmere.Tools

DocPage {
    id: page

    title: qsTr("Fine-Tuning Guide")

    DocSection {
        width: page.width
        title: qsTr("Understanding Fine-Tuning")

        DocText {
            width: parent.width
            text: qsTr("Fine-tuning adapts a pre-trained language model to your specific use case by training it on your custom dataset. This allows the model to learn domain-specific knowledge and behaviors while retaining its general capabilities.")
        }
    }

    DocSection {
        width: page.width
        title: qsTr("Training Methods")

        MethodCard {
            width: parent.width
            title: qsTr("Full Fine-Tuning")
            description: qsTr("Updates all model weights. Requires significant VRAM.")
            vram: qsTr("40GB+")
            speed: qsTr("Slow")
        }

        MethodCard {
            width: parent.width
            title: qsTr("LoRA")
            description: qsTr("Low-Rank Adaptation. Trains small adapter layers.")
            vram: qsTr("16GB+")
            speed: qsTr("Medium")
        }

        MethodCard {
            width: parent.width
            title: qsTr("QLoRA")
            description: qsTr("Quantized LoRA. 4-bit quantization for efficiency.")
            vram: qsTr("8GB+")
            speed: qsTr("Fast")
        }
    }

    DocSection {
        width: page.width
        title: qsTr("Hyperparameters")

        HyperparamRow {
            width: parent.width
            name: qsTr("Learning Rate")
            typical: qsTr("1e-4 to 5e-5")
            description: qsTr("Controls step size during optimization")
        }

        HyperparamRow {
            width: parent.width
            name: qsTr("Epochs")
            typical: "1-5"
            description: qsTr("Number of passes through the dataset")
        }

        HyperparamRow {
            width: parent.width
            name: qsTr("Batch Size")
            typical: "1-8"
            description: qsTr("Samples processed together (limited by VRAM)")
        }

        HyperparamRow {
            width: parent.width
            name: qsTr("LoRA Rank")
            typical: "8-64"
            description: qsTr("Rank of adapter matrices (higher = more capacity)")
        }
    }
}
