import QtQuick
import Orvane as Orvane

/// The content of the collapsed strip: one button that opens the workspace.
Orvane.BaseButton {
    id: root

    required property Orvane.FocusController focusTimer
    /// The width of the display's notch, 0 without one.
    required property real notchWidth

    readonly property bool running: root.focusTimer.status === "running"
    readonly property bool paused: root.focusTimer.status === "paused"
    readonly property bool finished: root.focusTimer.status === "finished"
    readonly property bool timed: root.running || root.paused
    /// The slots stand on whole pixels also in a strip of odd height.
    readonly property int slotHeight: root.height - root.height % 2

    objectName: "strip"
    focusPolicy: Qt.NoFocus
    label: qsTr("Open Orvane workspace")
    Accessible.description: qsTr("Alt+N")

    contentItem: Item {
        Item {
            id: leading
            x: 12
            width: root.timed ? (root.paused ? 14 : 0) + time.width : 16
            height: root.slotHeight
            Orvane.Symbol {
                visible: !root.timed
                anchors.verticalCenter: parent.verticalCenter
                name: "circle.lefthalf.filled"
                color: root.theme.tones.sage
            }
            Orvane.Symbol {
                visible: root.paused
                anchors.verticalCenter: parent.verticalCenter
                name: "pause.fill"
                size: 10
                color: root.theme.tones.paper
            }
            Orvane.Label {
                id: time
                objectName: "stripTime"
                visible: root.timed
                x: root.paused ? 14 : 0
                anchors.verticalCenter: parent.verticalCenter
                kind: Orvane.Type.stripTime
                text: root.focusTimer.timeText
                color: root.paused ? root.theme.tones.paper : root.theme.tones.text
            }
        }
        Orvane.Label {
            id: word
            objectName: "wordmark"
            readonly property real middle: (root.width - width) / 2
            readonly property real roomLeft: leading.x + leading.width
            readonly property real roomRight: trailing.x
            readonly property bool crowded: middle - roomLeft < 8 || roomRight - middle - width < 8

            visible: root.notchWidth <= 0
            x: Math.round(crowded ? (roomLeft + roomRight - width) / 2 : middle)
            height: root.slotHeight
            topPadding: Math.floor((height - 16) / 2) + Orvane.Type.wordmark.lead
            kind: Orvane.Type.wordmark
            text: "orvane"
            color: root.theme.tones.text
        }
        Orvane.Label {
            id: trailing
            objectName: "stripHint"
            x: Math.round(root.width - 12 - width)
            topPadding: Math.floor((root.slotHeight - 16) / 2) + kind.lead
            kind: root.finished ? Orvane.Type.label : Orvane.Type.stripHint
            text: root.finished ? qsTr("DONE ✓") : "⌥ N"
            color: root.finished ? root.theme.tones.sage : root.theme.tones.second
        }
    }
}
