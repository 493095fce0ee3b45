import QtQuick
import Orvane as Orvane

/// What happened on a chosen day: completed tasks, focus sessions, the note.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model

    readonly property bool seen: root.visible && root.Window.visibility !== Window.Hidden && root.Window.visibility !== Window.Minimized
    /// Whether the note stands under the sessions: the window is narrower than 1100.
    readonly property bool narrow: root.width < 1100 - 196

    focus: true

    Orvane.HistoryModel {
        id: history
        objectName: "history"
        model: root.model
        active: root.seen
    }

    Orvane.Label {
        x: 32
        y: 50
        width: date.x - x - 12
        kind: Orvane.Type.display
        text: qsTr("Look back")
        color: root.theme.tones.text
        Accessible.role: Accessible.Heading
    }
    Orvane.DateButton {
        id: date
        objectName: "dateButton"
        anchors.right: parent.right
        anchors.rightMargin: 32
        y: 52
        focus: true
        theme: root.theme
        text: history.dayText
        chosen: history.day
        today: history.today
        firstWeekday: history.firstWeekday
        onPicked: day => history.day = day
    }
    Rectangle {
        id: band
        objectName: "trail"
        x: 32
        y: 108
        width: parent.width - 2 * x
        height: 64
        visible: history.blank
        radius: Orvane.Metrics.cardRadius
        color: root.theme.tones.tint
        Orvane.Symbol {
            x: 20
            anchors.verticalCenter: parent.verticalCenter
            name: "sun.horizon"
            size: 24
            stroke: 1.5
            color: root.theme.tones.sage
        }
        Orvane.Label {
            x: 56
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - x - 20
            kind: Orvane.Type.title
            text: qsTr("Leave a trail of progress.")
            color: root.theme.tones.text
            elide: Text.ElideRight
        }
    }
    Orvane.HistoryList {
        id: list
        objectName: "historyRows"
        x: 24
        y: band.visible ? band.y + band.height + 20 : 108
        width: root.narrow ? root.width - 2 * x : root.width - 2 * x - 440
        height: root.height - y
        theme: root.theme
        model: root.model
        history: history
        noteBelow: root.narrow
        onEmptied: date.forceActiveFocus(Qt.TabFocusReason)
    }
    Orvane.PastNote {
        objectName: "noteBeside"
        anchors.right: parent.right
        anchors.rightMargin: 32
        y: list.y
        width: 400
        visible: !root.narrow
        theme: root.theme
        parts: root.narrow ? [] : history.noteParts
        room: list.height - 24
    }
}
