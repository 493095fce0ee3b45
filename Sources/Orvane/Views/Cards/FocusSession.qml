import QtQuick
import Orvane as Orvane

/// The foot of the focus card during a session: its task and what can be done with it.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property bool narrow
    required property bool running
    /// The session's task; empty when it has none.
    required property string taskTitle
    /// Whether the session was interrupted by the program's end.
    required property bool recovered

    signal pauseRequested
    signal resumeRequested
    signal finishRequested

    /// Whether the keyboard shows where it is.
    readonly property bool ringed: toggle.visualFocus || finish.visualFocus

    implicitHeight: 177

    function focusToggle(reason: int): void {
        toggle.forceActiveFocus(reason);
    }

    Rectangle {
        width: parent.width
        height: 1
        color: root.theme.tones.line
    }
    Orvane.Label {
        y: 15
        kind: Orvane.Type.labelPaired
        text: qsTr("ONE THING AT A TIME")
        color: root.theme.tones.second
    }
    Orvane.Label {
        anchors.right: parent.right
        y: 15
        kind: Orvane.Type.labelPaired
        text: qsTr("UP NEXT")
        color: root.theme.tones.third
    }
    Orvane.Label {
        id: title
        objectName: "sessionTitle"
        y: 37
        width: parent.width
        kind: Orvane.Type.titleMedium
        text: root.taskTitle === "" ? qsTr("Choose a task") : root.taskTitle
        color: root.theme.tones.text
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        HoverHandler {
            id: overTitle
        }
        Orvane.Tooltip {
            theme: root.theme
            text: title.text
            wanted: title.truncated && overTitle.hovered
        }
    }
    Orvane.Symbol {
        visible: note.visible
        y: note.y
        name: "clock.arrow.circlepath"
        color: root.theme.tones.paper
    }
    Orvane.Label {
        id: note
        objectName: "recoveredNote"
        x: 24
        y: title.y + title.height + 10
        width: parent.width - x
        visible: root.recovered
        kind: Orvane.Type.small
        text: qsTr("Restored paused. Time away wasn’t counted.")
        color: root.theme.tones.paper
        wrapMode: Text.Wrap
    }
    Orvane.FilledButton {
        id: toggle
        objectName: "pauseOrResume"
        y: 137
        width: finish.x - 8
        leftPadding: 8
        rightPadding: 8
        gap: 6
        theme: root.theme
        size: Orvane.PillButton.Large
        symbol: root.narrow ? "" : root.running ? "pause.fill" : "play.fill"
        text: root.running ? qsTr("Pause") : qsTr("Resume")
        focus: true
        onClicked: root.running ? root.pauseRequested() : root.resumeRequested()
    }
    Orvane.QuietButton {
        id: finish
        objectName: "finishSession"
        anchors.right: parent.right
        y: 137
        leftPadding: 10
        rightPadding: 10
        gap: 6
        theme: root.theme
        size: Orvane.PillButton.Large
        symbol: root.narrow ? "" : "checkmark"
        text: qsTr("Finish session")
        onClicked: root.finishRequested()
    }
}
