pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// The open tasks to choose from, with a search for their titles.
Orvane.Popover {
    id: root

    required property Orvane.TaskListModel tasks
    /// The chosen task; empty for none.
    required property string chosenId

    /// The user chose this task; the popover is closed by then.
    signal chosen(string taskId)

    property int current: -1

    objectName: "taskChooserPopover"
    parent: root.theme.layer
    centred: true
    above: true
    padding: 8
    contentWidth: 228
    contentHeight: found.count > 0 ? list.y + list.height : nothing.y + nothing.height + 12
    Accessible.role: Accessible.Dialog
    Accessible.name: question.text

    onAboutToOpen: {
        search.text = "";
        found.tasks = root.tasks;
        root.goTo(found.rowOf(root.chosenId));
    }
    // A closed popover follows no edits.
    onVisibleChanged: {
        if (!root.visible)
            found.tasks = null;
    }
    Keys.onUpPressed: root.step(-1)
    Keys.onDownPressed: root.step(1)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageUp)
            root.step(-5);
        else if (event.key === Qt.Key_PageDown)
            root.step(5);
        else
            return;
        event.accepted = true;
    }

    function goTo(row: int): void {
        root.current = row;
        if (row >= 0)
            list.positionViewAtIndex(row, ListView.Contain);
    }

    function step(by: int): void {
        root.byKeyboard = true;
        if (found.count > 0)
            root.goTo(root.current < 0 ? (by > 0 ? 0 : found.count - 1) : Math.max(0, Math.min(root.current + by, found.count - 1)));
    }

    function choose(row: int): void {
        const taskId = found.idAt(row);
        if (taskId === "")
            return;
        root.close();
        root.chosen(taskId);
    }

    Orvane.TaskSearchModel {
        id: found
        needle: search.text
        // What Return chooses: the first match, or the task that is chosen already.
        onModelReset: root.goTo(found.needle.trim() === "" ? found.rowOf(root.chosenId) : found.count > 0 ? 0 : -1)
    }
    Orvane.Label {
        id: question
        x: 8
        y: 8
        kind: Orvane.Type.title
        text: qsTr("What deserves your focus?")
        color: root.theme.tones.text
        Accessible.role: Accessible.Heading
    }
    Orvane.SearchField {
        id: search
        objectName: "taskSearch"
        x: 8
        y: 36
        width: root.contentWidth - 16
        focus: true
        theme: root.theme
        placeholder: qsTr("Find a task…")
        onAccepted: root.choose(root.current)
    }
    ListView {
        id: list
        objectName: "foundTasks"
        y: 72
        width: root.contentWidth
        height: Math.min(found.count * 32, 176)
        visible: found.count > 0
        clip: true
        reuseItems: true
        cacheBuffer: 0
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        model: found
        Accessible.role: Accessible.List
        Accessible.name: question.text
        T.ScrollBar.vertical: Orvane.ScrollBar {
            theme: root.theme
            near: overList.hovered
        }
        HoverHandler {
            id: overList
        }
        delegate: Orvane.ChooserRow {
            id: row
            required property int index
            required property string taskId

            width: list.width
            theme: root.theme
            chosen: row.taskId === root.chosenId
            current: row.index === root.current
            ringed: row.current && root.byKeyboard
            onClicked: root.choose(row.index)
            onPointed: {
                root.byKeyboard = false;
                root.current = row.index;
            }
            onDeserted: if (row.current && !root.byKeyboard) root.current = -1
            ListView.onPooled: row.visible = false
            ListView.onReused: row.visible = true
        }
    }
    Orvane.Label {
        id: nothing
        objectName: "nothingFound"
        x: 8
        y: 80
        visible: found.count === 0
        kind: Orvane.Type.body
        text: qsTr("No matching tasks.")
        color: root.theme.tones.second
    }
}
