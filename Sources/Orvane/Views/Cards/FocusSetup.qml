pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// What the user decides before a focus session: its mode, its length and its task. Stands at the foot
/// of the focus card; says what the user wants, the card does it.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property bool narrow
    /// "countdown" or "stopwatch".
    required property string mode
    /// The length of a countdown.
    required property int minutes
    /// The title of the chosen task; empty without a choice.
    required property string taskTitle
    /// Whether there is a task to choose.
    required property bool hasTasks
    required property bool startable
    /// Whether the popover of the custom duration is open, and that of the tasks.
    property bool choosingDuration: false
    property bool choosingTask: false

    signal modeChosen(string mode)
    signal minutesChosen(int minutes)
    signal customRequested(Item anchor, bool byKeyboard)
    signal taskRequested(Item anchor, bool byKeyboard)
    signal addRequested
    signal startRequested(bool byKeyboard)

    readonly property list<string> modes: ["countdown", "stopwatch"]
    readonly property list<int> presets: [15, 25, 45, 60]
    readonly property bool custom: root.choosingDuration || !root.presets.includes(root.minutes)
    readonly property string minutesText: qsTr("%1 minutes").arg(root.minutes)
    readonly property string stopwatchText: qsTr("Count up, without a deadline")

    implicitHeight: 204

    function focusStart(reason: int): void {
        start.forceActiveFocus(reason);
    }

    Orvane.TabsPicker {
        objectName: "focusMode"
        width: parent.width
        theme: root.theme
        label: qsTr("Focus mode")
        choices: [root.minutesText, root.stopwatchText]
        texts: [root.minutesText, ""]
        symbols: ["timer", "infinity"]
        current: root.modes.indexOf(root.mode)
        onChosen: index => root.modeChosen(root.modes[index])
    }

    Item {
        id: lengths
        readonly property int gap: 4
        readonly property int customWidth: root.narrow ? 60 : 76
        readonly property real step: (width + gap - customWidth - gap) / root.presets.length

        y: 44
        width: parent.width
        height: 32
        visible: root.mode === "countdown"
        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Duration")

        Repeater {
            model: root.presets
            delegate: Orvane.Chip {
                id: chip
                required property int index
                required property int modelData

                objectName: "preset" + chip.modelData
                x: Math.round(chip.index * lengths.step)
                width: Math.round((chip.index + 1) * lengths.step) - lengths.gap - x
                theme: root.theme
                kind: Orvane.Type.figureSmall
                text: String(chip.modelData)
                label: qsTr("%1 minutes").arg(chip.modelData)
                chosen: !root.custom && root.minutes === chip.modelData
                onClicked: root.minutesChosen(chip.modelData)
            }
        }
        Orvane.Chip {
            id: customChip
            objectName: "customDuration"
            anchors.right: parent.right
            width: lengths.customWidth
            theme: root.theme
            text: qsTr("Custom")
            symbol: root.narrow ? "" : "slider.horizontal.3"
            chosen: root.custom
            onClicked: root.customRequested(lengths, customChip.visualFocus)
        }
    }
    Orvane.Label {
        objectName: "stopwatchLine"
        y: 52
        width: parent.width
        visible: root.mode === "stopwatch"
        kind: Orvane.Type.small
        text: root.stopwatchText
        color: root.theme.tones.second
        horizontalAlignment: Text.AlignHCenter
    }

    Orvane.TaskChooser {
        id: chooser
        objectName: "taskChooser"
        y: 84
        width: parent.width
        theme: root.theme
        title: root.taskTitle
        hasTasks: root.hasTasks
        held: root.choosingTask
        onClicked: {
            if (root.hasTasks)
                root.taskRequested(chooser, chooser.visualFocus);
            else
                root.addRequested();
        }
    }
    Orvane.FilledButton {
        id: start
        objectName: "startFocus"
        y: 140
        width: parent.width
        theme: root.theme
        size: Orvane.PillButton.Large
        symbol: "play.fill"
        text: qsTr("Start focus")
        focus: true
        enabled: root.startable
        onClicked: root.startRequested(start.visualFocus)
    }
    Orvane.Label {
        y: 188
        width: parent.width
        kind: Orvane.Type.small
        text: qsTr("One task. Your full attention.")
        color: root.theme.tones.third
        horizontalAlignment: Text.AlignHCenter
    }
}
