// The service for those who call it from elsewhere.
import QtQuick
import Quillmere.Theme
import Quillmere.Tools

DocPage {
    id: page

    title: qsTr("API Reference")

    DocSection {
        width: page.width
        title: qsTr("Base URL")

        CodeBlock {
            width: parent.width
            text: DocAddresses.apiEndpoint
            font: Theme.monospaced(14)
            tint: Theme.accent
        }
    }

    DocSection {
        width: page.width
        title: qsTr("Authentication")

        DocText {
            width: parent.width
            text: qsTr("All API requests require a Bearer token in the Authorization header.")
        }
    }

    DocSection {
        width: page.width
        title: qsTr("Endpoints")

        EndpointRow {
            width: parent.width
            method: "GET"
            path: "/models"
            description: qsTr("List available models")
        }

        EndpointRow {
            width: parent.width
            method: "GET"
            path: "/files"
            description: qsTr("List uploaded datasets")
        }

        EndpointRow {
            width: parent.width
            method: "POST"
            path: "/fine-tuning/jobs"
            description: qsTr("Create fine-tuning job")
        }

        EndpointRow {
            width: parent.width
            method: "POST"
            path: "/chat/completions"
            description: qsTr("Chat completion")
        }
    }
}
