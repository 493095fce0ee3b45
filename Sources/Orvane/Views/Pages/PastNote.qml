pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// A day's note, to read: under its heading a sheet with the text, or that there is none. The sheet is as
/// high as its text; where less `room` is given the text scrolls in it.
FocusScope {
    id: root

    required property Orvane.Theme theme
    /// The text in parts to show below each other.
    required property list<string> parts
    property real room: Infinity
    /// The height of what it stands in where that scrolls as a whole: its keys then ask for that.
    property real pageHeight: 0
    readonly property bool inPage: root.pageHeight > 0

    signal scrollWanted(real distance)

    readonly property bool empty: root.parts.length === 0
    readonly property real wanted: Math.max(240, scroll.contentHeight + 32)

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
        visible: root.empty
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
        visible: !root.empty
        radius: Orvane.Metrics.cardRadius
        color: root.theme.tones.card
        border.width: 1
        border.color: root.theme.tones.line

        ListView {
            id: scroll
            objectName: "noteScroll"
            // Clear of the round corners and of the outline.
            anchors.fill: parent
            anchors.topMargin: 16
            anchors.bottomMargin: 16
            anchors.leftMargin: 1
            anchors.rightMargin: 1
            model: root.parts
            cacheBuffer: 0
            keyNavigationEnabled: false
            highlightFollowsCurrentItem: false
            boundsBehavior: Flickable.StopAtBounds
            interactive: contentHeight > height
            clip: interactive
            activeFocusOnTab: scroll.interactive || root.inPage
            focus: true
            Accessible.role: Accessible.List
            Accessible.name: qsTr("DAILY NOTE")
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
                    scroll.contentY = Math.max(scroll.originY, Math.min(scroll.contentY + distance, scroll.originY + scroll.contentHeight - scroll.height));
            }

            Keys.onUpPressed: scroll.scrollBy(-22)
            Keys.onDownPressed: scroll.scrollBy(22)
            Keys.onPressed: event => {
                if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
                    return;
                scroll.scrollBy((event.key === Qt.Key_PageUp ? -1 : 1) * ((root.inPage ? root.pageHeight : scroll.height) - 22));
                event.accepted = true;
            }

            delegate: Orvane.Label {
                required property string modelData
                objectName: "noteText"
                leftPadding: 19
                rightPadding: 19
                width: scroll.width
                kind: Orvane.Type.note
                text: modelData
                color: root.theme.tones.text
                wrapMode: Text.Wrap
            }
        }
        Orvane.FocusRing {
            theme: root.theme
            shown: scroll.activeFocus
            corner: sheet.radius
        }
    }
}
