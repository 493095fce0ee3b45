pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// The focus timer. Before a session the user decides its mode, length and task here; during one the
/// card shows the time, the task and what can be done. A finished session leaves it before the next.
Orvane.Card {
    id: root

    required property Orvane.AppModel model

    /// The mode and the task chosen for the next session; no task when empty.
    property string mode: "countdown"
    property string selected: ""
    /// The length the user picked in minutes; 0 while the preferred one is followed.
    property int pickedMinutes: 0

    readonly property Orvane.FocusController timer: root.model.focus
    readonly property bool active: root.timer.active
    readonly property bool running: root.timer.status === "running"
    readonly property int minutes: root.pickedMinutes > 0 ? root.pickedMinutes : root.model.settings.defaultMinutes
    readonly property string currentMode: root.active ? root.timer.mode : root.mode
    readonly property bool stopwatch: root.currentMode === "stopwatch"
    /// What the dial shows.
    readonly property real seconds: root.active ? root.timer.seconds : root.stopwatch ? 0 : root.minutes * 60
    /// How much of the dial is lit: it empties as a countdown runs.
    readonly property real progress: {
        if (!root.active || root.stopwatch)
            return 1;
        const target = root.timer.target;
        return Math.max(0, Math.min(target < 1 ? root.seconds : root.seconds / target, 1));
    }
    readonly property color stateColor: !root.active ? root.theme.tones.third : !root.running ? root.theme.tones.paper : root.stopwatch ? root.theme.tones.lilac : root.theme.tones.sage

    /// The chosen task's title; empty when it is not open any more.
    property string selectedTitle: ""
    /// Which of the two views is shown; follows `active` once the keyboard has been looked after.
    property bool inSession: root.timer.active
    property bool startedByKeyboard: false

    objectName: "focusCard"
    title: qsTr("Focus studio")
    symbol: "viewfinder"
    badgeColor: Orvane.Palette.accent
    glyphColor: Orvane.Palette.sage
    detail: root.running ? qsTr("IN SESSION") : root.active ? qsTr("PAUSED") : qsTr("READY")
    detailColor: root.stateColor

    Component.onCompleted: {
        root.inSession = root.active;
        root.updateTitle();
    }
    onSelectedChanged: root.updateTitle()
    onActiveChanged: root.switchViews()

    function updateTitle(): void {
        root.selectedTitle = root.selected === "" ? "" : root.model.openTaskTitle(root.selected);
    }

    /// Shows the other view; where the keyboard was in this one, it goes to the main button of that.
    function switchViews(): void {
        duration.close();
        chooser.close();
        const held = setup.activeFocus || session.activeFocus;
        const ringed = root.active ? root.startedByKeyboard : session.ringed;
        root.inSession = root.active;
        root.startedByKeyboard = false;
        const reason = ringed ? Qt.TabFocusReason : Qt.OtherFocusReason;
        if (held && root.active)
            session.focusToggle(reason);
        else if (held)
            setup.focusStart(reason);
    }

    /// Goes to the field for a new task; where its card is hidden, to where it can be shown.
    function addTask(): void {
        if (root.model.settings.visibleCards.includes("tasks"))
            root.model.requestFocus();
        else
            root.model.requestSettings();
    }

    Connections {
        target: root.model
        function onSnapshotChanged(): void {
            root.updateTitle();
        }
    }

    Flickable {
        id: scroll
        x: 8
        y: 40
        width: root.width - 16
        height: root.height - 44
        contentWidth: width
        contentHeight: page.height - 44
        interactive: contentHeight > height
        clip: interactive
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: Orvane.ScrollBar {
            theme: root.theme
            near: over.hovered
        }
        HoverHandler {
            id: over
        }

        /// Brings the control that has the keyboard into the visible part.
        readonly property Item focused: root.Window.activeFocusItem
        onFocusedChanged: {
            if (!scroll.interactive || !scroll.focused || !(setup.activeFocus || session.activeFocus))
                return;
            const margin = 6;
            const top = scroll.focused.mapToItem(scroll.contentItem, 0, 0).y - margin;
            const bottom = top + scroll.focused.height + 2 * margin;
            scroll.contentY = Math.max(0, Math.min(Math.max(scroll.contentY, bottom - scroll.height), top, scroll.contentHeight - scroll.height));
        }

        // In the card's own coordinates while nothing is scrolled.
        Item {
            id: page
            readonly property int foot: root.inSession ? session.height + 12 : setup.height + 12
            readonly property int spare: root.inSession ? 19 : 16
            /// Between the heading and what stands below the dial.
            readonly property int room: height - 40 - foot

            x: -8
            y: -40
            width: root.width
            height: Math.max(root.height, 40 + 120 + spare + foot)

            Orvane.FocusDial {
                id: dial
                objectName: "focusDial"
                readonly property int restBox: dial.boxFor(root.large ? 200 : 168, page.height - 256, 16)
                readonly property int busyBox: dial.boxFor(root.large ? 224 : 192, page.height - 229, 19)
                readonly property int restTop: 40 + Math.floor((page.height - 256 - restBox) / 2)
                readonly property int busyTop: 40 + (root.large ? Math.floor((page.height - 229 - busyBox) / 2) : 8)
                /// From 0, before a session, to 1, in one.
                property real growth: root.active ? 1 : 0

                // Even, so that its middle lies on a whole pixel.
                function boxFor(usual: int, room: int, spare: int): int {
                    return Math.max(120, Math.min(usual, 2 * Math.floor((room - spare) / 2)));
                }

                x: Math.round((page.width - width) / 2)
                y: Math.round(restTop + (busyTop - restTop) * growth)
                theme: root.theme
                box: Math.round(restBox + (busyBox - restBox) * growth)
                timeText: root.timer.clockText(root.seconds)
                caption: !root.active ? qsTr("MAKE A LITTLE SPACE") : !root.running ? qsTr("TAKE A BREATH") : root.stopwatch ? qsTr("ELAPSED") : qsTr("REMAINING")
                progress: root.progress
                lit: root.active ? root.stateColor : root.theme.tones.ready
                monospaced: root.model.settings.clockStyle === "monospaced"

                Behavior on growth {
                    NumberAnimation {
                        duration: root.theme.span(Orvane.Metrics.frame)
                        easing.type: Easing.InOutQuad
                    }
                }
            }
            Orvane.FocusSetup {
                id: setup
                objectName: "focusSetup"
                x: Orvane.Metrics.cardInset
                y: page.height - height - 12
                width: page.width - 2 * x
                visible: !root.inSession
                theme: root.theme
                narrow: root.narrow
                mode: root.mode
                minutes: root.minutes
                taskTitle: root.selectedTitle
                hasTasks: root.model.openTasks.count > 0
                startable: root.selectedTitle !== "" && !root.model.startingFocus
                choosingDuration: duration.opened
                choosingTask: chooser.opened
                onModeChosen: mode => root.mode = mode
                onMinutesChosen: minutes => root.pickedMinutes = minutes
                onCustomRequested: (anchor, byKeyboard) => duration.open(anchor, byKeyboard)
                onTaskRequested: (anchor, byKeyboard) => chooser.open(anchor, byKeyboard)
                onAddRequested: root.addTask()
                onStartRequested: byKeyboard => {
                    root.startedByKeyboard = byKeyboard;
                    root.model.beginFocusOn(root.selected, root.mode, root.minutes);
                }
            }
            Orvane.FocusSession {
                id: session
                objectName: "focusSession"
                x: Orvane.Metrics.cardInset
                y: page.height - height - 12
                width: page.width - 2 * x
                visible: root.inSession
                theme: root.theme
                narrow: root.narrow
                running: root.running
                taskTitle: root.timer.taskTitle
                recovered: root.timer.recovered
                onPauseRequested: root.timer.pause()
                onResumeRequested: root.timer.resume()
                onFinishRequested: root.timer.finish()
            }
        }
    }
    Orvane.DurationPopover {
        id: duration
        theme: root.theme
        minutes: root.minutes
        onStepped: minutes => root.pickedMinutes = minutes
        onSettingsRequested: root.model.requestSettings()
    }
    Orvane.TaskChooserPopover {
        id: chooser
        theme: root.theme
        tasks: root.model.openTasks
        chosenId: root.selectedTitle === "" ? "" : root.selected
        onChosen: taskId => root.selected = taskId
    }
}
