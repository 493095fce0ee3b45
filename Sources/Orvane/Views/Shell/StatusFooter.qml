pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// The line under the cards: at most one message at the left, the save state at the right.
Item {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model

    readonly property bool unsaved: root.model.saveState === qsTr("Not saved")
    // The model's own error comes before that of the reminders.
    readonly property string error: root.model.error !== "" ? root.model.error : root.model.reminderError
    readonly property bool hasError: root.error !== ""
    // An error set after the removal comes first, so that a failed save never hides behind it.
    readonly property bool offersUndo: !root.hasError && root.model.canUndoDelete && root.model.notice === qsTr("Task removed.")
    readonly property bool hasNotice: !root.hasError && root.model.notice !== ""

    function retrySave(): void {
        root.model.error = "";
        root.model.persist();
    }

    function dismissError(): void {
        if (root.model.error !== "")
            root.model.error = "";
        else
            root.model.dismissReminderError();
    }

    Row {
        id: message
        anchors.left: parent.left
        anchors.right: saveState.left
        anchors.rightMargin: 24
        height: parent.height
        spacing: 8

        Orvane.Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.hasError
            name: "exclamationmark.triangle"
            color: root.theme.tones.clay
        }
        Orvane.Label {
            id: words
            objectName: "footerMessage"
            // Room for the button beside the text.
            readonly property real room: message.width - (root.hasError ? 24 : 0) - 8 - (first.visible ? first.width + 8 : 0) - (cross.visible ? 28 : 0)

            anchors.verticalCenter: parent.verticalCenter
            width: Math.ceil(Math.min(implicitWidth, 720, room))
            visible: root.hasError || root.hasNotice
            kind: Orvane.Type.small
            text: root.hasError ? root.error : root.model.notice
            color: root.theme.tones.text
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            Accessible.role: root.hasError ? Accessible.AlertMessage : Accessible.StaticText
            Accessible.name: words.text
            HoverHandler {
                id: overWords
            }
            Orvane.Tooltip {
                theme: root.theme
                text: words.text
                wanted: words.truncated && overWords.hovered
            }
        }
        Orvane.QuietButton {
            id: first
            objectName: "footerButton"
            anchors.verticalCenter: parent.verticalCenter
            visible: root.hasError || root.offersUndo
            theme: root.theme
            size: Orvane.PillButton.Mini
            text: !root.hasError ? qsTr("Undo") : root.unsaved ? qsTr("Retry save") : qsTr("Dismiss")
            onClicked: {
                if (!root.hasError)
                    root.model.undoDelete();
                else if (root.unsaved)
                    root.retrySave();
                else
                    root.dismissError();
            }
        }
        Orvane.IconButton {
            id: cross
            objectName: "footerCross"
            anchors.verticalCenter: parent.verticalCenter
            visible: root.hasNotice
            theme: root.theme
            symbol: "xmark"
            symbolSize: 14
            label: qsTr("Dismiss message")
            onClicked: root.model.notice = ""
        }
    }
    Row {
        id: saveState
        anchors.right: parent.right
        height: parent.height
        spacing: 8

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 6
            height: 6
            radius: 3
            color: root.unsaved ? root.theme.tones.clay : root.model.saveState === qsTr("Saving…") ? root.theme.tones.lilac : root.theme.tones.sage
        }
        Orvane.Label {
            objectName: "saveState"
            anchors.verticalCenter: parent.verticalCenter
            kind: root.unsaved ? Orvane.Type.smallMedium : Orvane.Type.small
            text: root.model.saveState
            color: root.unsaved ? root.theme.tones.clay : root.theme.tones.second
        }
    }
}
