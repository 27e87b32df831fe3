// What a user can do while the sign-in goes on in the browser: give up, open the page once more, carry its address over by hand,
// and bring the address that it ended at back by hand.
import QtQuick
import Quillmere.Controls
import Quillmere.Platform
import Quillmere.Theme

Card {
    id: panel

    width: 344
    height: content.implicitHeight + 32

    onVisibleChanged: address.clear()

    Column {
        id: content

        x: 16
        y: 16
        width: panel.width - 32
        spacing: 12

        Label {
            width: parent.width
            text: qsTr("Continue in your browser")
            font: Theme.system(13, Font.DemiBold)
            color: "white"
            Accessible.role: Accessible.Heading
        }

        Label {
            width: parent.width
            text: BrowserSession.opened
                ? qsTr("The sign-in page is open there. This window goes on as soon as you are done.")
                : qsTr("No browser could be opened. Copy the link and open it in a browser yourself.")
            font: Theme.system(12)
            color: Theme.textSecondary
            wrapMode: Text.Wrap
        }

        Flow {
            width: parent.width
            spacing: 8

            SecondaryButton {
                text: qsTr("Cancel")
                onClicked: BrowserSession.cancel()
            }

            SecondaryButton {
                text: qsTr("Open Again")
                onClicked: BrowserSession.openAgain()
            }

            SecondaryButton {
                text: qsTr("Copy Link")
                onClicked: BrowserSession.copyLink()
            }
        }

        RoundedField {
            id: address

            width: parent.width
            label: qsTr("Address that the browser ended at")
            placeholderText: qsTr("Browser did not come back? Paste its address")
            // It holds tokens.
            secret: true
            onAccepted: {
                const pasted = text.trim();
                clear();
                BrowserSession.deliver(pasted);
            }
        }
    }
}
