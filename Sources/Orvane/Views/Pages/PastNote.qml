import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// A day's note, to read: under its heading a sheet with the text, or that there is none. The sheet is as
/// high as its text; where less `room` is given the text scrolls in it.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property string text
    property real room: Infinity
    /// The height of what it stands in where that scrolls as a whole: its keys then ask for that.
    property real pageHeight: 0
    readonly property bool inPage: root.pageHeight > 0

    signal scrollWanted(real distance)

    readonly property real wanted: Math.max(240, words.height + 32)

    implicitHeight: sheet.visible ? sheet.y + sheet.height : none.height
    height: implicitHeight

    Orvane.HistoryWords {
        id: heading
        width: root.width + 16
        x: -8
        height: implicitHeight
        theme: root.theme
        text: qsTr("DAILY NOTE")
        heading: true
    }
    Orvane.HistoryWords {
        id: none
        objectName: "noNote"
        x: -8
        y: heading.height
        width: root.width + 16
        height: implicitHeight
        visible: root.text === ""
        theme: root.theme
        text: qsTr("No note for this day.")
        heading: false
    }
    Rectangle {
        id: sheet
        objectName: "noteSheet"
        y: heading.height + 12
        width: root.width
        height: Math.round(Math.min(root.wanted, Math.max(120, root.room - y)))
        visible: root.text !== ""
        radius: Orvane.Metrics.cardRadius
        color: root.theme.tones.card
        border.width: 1
        border.color: root.theme.tones.line

        Flickable {
            id: scroll
            objectName: "noteScroll"
            // Clear of the round corners and of the outline.
            anchors.fill: parent
            anchors.topMargin: 16
            anchors.bottomMargin: 16
            anchors.leftMargin: 1
            anchors.rightMargin: 1
            contentHeight: words.height
            boundsBehavior: Flickable.StopAtBounds
            interactive: contentHeight > height
            clip: interactive
            activeFocusOnTab: scroll.interactive || root.inPage
            focus: true
            Accessible.role: Accessible.StaticText
            Accessible.name: root.text
            T.ScrollBar.vertical: Orvane.ScrollBar {
                theme: root.theme
                near: over.hovered
            }
            HoverHandler {
                id: over
            }

            function scrollBy(distance: real): void {
                if (root.inPage)
                    root.scrollWanted(distance);
                else
                    scroll.contentY = Math.max(0, Math.min(scroll.contentY + distance, scroll.contentHeight - scroll.height));
            }

            Keys.onUpPressed: scroll.scrollBy(-22)
            Keys.onDownPressed: scroll.scrollBy(22)
            Keys.onPressed: event => {
                if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
                    return;
                scroll.scrollBy((event.key === Qt.Key_PageUp ? -1 : 1) * ((root.inPage ? root.pageHeight : scroll.height) - 22));
                event.accepted = true;
            }

            Orvane.Label {
                id: words
                objectName: "noteText"
                x: 19
                width: scroll.width - 2 * x
                kind: Orvane.Type.note
                text: root.text
                color: root.theme.tones.text
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
        }
        Orvane.FocusRing {
            theme: root.theme
            shown: scroll.activeFocus
            corner: sheet.radius
        }
    }
}
