pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// The rows of a day: completed tasks, then focus sessions, each under its heading. One stop for the Tab
/// key; the arrow keys go from row to row.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model
    required property Orvane.HistoryModel history
    /// Whether the note follows the sessions.
    required property bool noteBelow

    /// The last row that the keyboard could be on is gone.
    signal emptied

    /// Scrolls as little as it takes to show a row; the first one brings its heading along.
    function reveal(row: int): void {
        list.positionViewAtIndex(row === root.history.stopNear(0, 1) ? 0 : row, ListView.Contain);
        list.positionViewAtIndex(row, ListView.Contain);
    }

    /// Gives the keyboard to the row nearest to `row`, looking in the direction of `step` first.
    function focusRow(row: int, step: int, reason: int): void {
        const stop = root.history.stopNear(row, step);
        if (stop < 0) {
            root.emptied();
            return;
        }
        root.reveal(stop);
        list.itemAtIndex(stop)?.entry.forceActiveFocus(reason);
    }

    /// `keepKeyboard` hands it to the row that takes this one's place.
    function reopen(row: int, taskId: string, keepKeyboard: bool): void {
        root.model.toggleTask(taskId);
        if (keepKeyboard)
            root.focusRow(row, 1, Qt.TabFocusReason);
    }

    function rowKey(row: int, key: int): bool {
        if (key === Qt.Key_Up || key === Qt.Key_Down) {
            const step = key === Qt.Key_Up ? -1 : 1;
            root.focusRow(row + step, step, Qt.TabFocusReason);
        } else if (key === Qt.Key_Home)
            root.focusRow(0, 1, Qt.TabFocusReason);
        else if (key === Qt.Key_End)
            root.focusRow(list.count - 1, -1, Qt.TabFocusReason);
        else if (key === Qt.Key_PageUp || key === Qt.Key_PageDown) {
            const rows = Math.max(1, Math.floor(list.height / 44) - 1);
            root.focusRow(row + (key === Qt.Key_PageUp ? -rows : rows), key === Qt.Key_PageUp ? -1 : 1, Qt.TabFocusReason);
        } else
            return false;
        return true;
    }

    /// The row that the Tab key reaches is one that can have the keyboard.
    function settleCurrent(): void {
        list.currentIndex = root.history.stopNear(Math.max(0, list.currentIndex), 1);
    }

    Connections {
        target: root.history
        function onRowsInserted() {
            Qt.callLater(root.settleCurrent);
        }
        function onRowsRemoved() {
            Qt.callLater(root.settleCurrent);
        }
        function onDayChanged() {
            list.positionViewAtBeginning();
        }
    }

    ListView {
        id: list
        objectName: "historyView"
        anchors.fill: parent
        focus: true
        clip: true
        model: root.history
        Component.onCompleted: root.settleCurrent()
        cacheBuffer: 120
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        activeFocusOnTab: false
        Accessible.role: Accessible.List
        Accessible.name: qsTr("What happened")
        T.ScrollBar.vertical: Orvane.ScrollBar {
            theme: root.theme
            near: over.hovered
        }
        HoverHandler {
            id: over
        }

        function scrollTo(y: real): void {
            const last = list.originY + list.contentHeight + list.bottomMargin - list.height;
            list.contentY = Math.max(list.originY, Math.min(y, last));
        }

        delegate: FocusScope {
            id: row
            required property int index
            required property int kind
            required property string rowId
            required property string title
            required property var minutes
            required property string status

            readonly property bool isTask: row.kind === Orvane.HistoryModel.Task
            readonly property bool isStop: row.isTask || row.kind === Orvane.HistoryModel.Session
            readonly property bool isCurrent: ListView.isCurrentItem
            readonly property alias entry: entry

            width: ListView.view.width
            implicitHeight: row.isStop ? entry.implicitHeight : words.implicitHeight

            Orvane.HistoryRow {
                id: entry
                objectName: "historyRow"
                width: parent.width
                height: parent.height
                visible: row.isStop
                theme: root.theme
                title: row.title
                task: row.isTask
                minutes: row.minutes
                status: row.status
                focus: true
                focusPolicy: row.isCurrent || entry.activeFocus ? Qt.TabFocus : Qt.NoFocus
                onActiveFocusChanged: {
                    if (entry.activeFocus)
                        list.currentIndex = row.index;
                }
                onVisualFocusChanged: {
                    if (entry.visualFocus)
                        root.reveal(row.index);
                }
                onReopened: root.reopen(row.index, row.rowId, entry.visualFocus)
                Keys.onPressed: event => event.accepted = root.rowKey(row.index, event.key)
            }
            Orvane.HistoryWords {
                id: words
                width: parent.width
                height: parent.height
                visible: !row.isStop
                theme: root.theme
                text: row.isStop ? "" : row.title
                heading: row.kind === Orvane.HistoryModel.TasksHeading || row.kind === Orvane.HistoryModel.SessionsHeading
                gapAbove: row.kind === Orvane.HistoryModel.SessionsHeading
            }
        }
        // Room for the note, which scrolls with the rows. (As a footer, made first, it would come before them
        // for the Tab key.)
        bottomMargin: root.noteBelow ? note.height + 48 : 24
    }
    Item {
        anchors.fill: list
        clip: true
        visible: root.noteBelow
        Orvane.PastNote {
            id: note
            objectName: "noteBelow"

            readonly property real place: list.originY + list.contentHeight + 24

            x: 8
            y: note.place - list.contentY
            width: list.width - 2 * x
            theme: root.theme
            parts: root.noteBelow ? root.history.noteParts : []
            // A very long one scrolls in a sheet of its own after all: not all of it is laid out.
            room: note.parts.length > 10 ? list.height - 48 : Infinity
            pageHeight: note.parts.length > 10 ? 0 : list.height
            onScrollWanted: distance => list.scrollTo(list.contentY + distance)
            onActiveFocusChanged: {
                if (note.activeFocus)
                    list.scrollTo(note.place);
            }
        }
    }
}
