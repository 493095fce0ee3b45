pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// The rows of the tasks card with everything the keyboard and the pointer can do to them.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model
    required property Orvane.TaskListModel tasks
    required property bool completed

    /// The task whose title is being edited, and the one whose menu is open; empty for none.
    property string editingId: ""
    property string menuId: ""
    /// The task moved last by keyboard, whose row says where it is now.
    property string movedId: ""

    onTasksChanged: {
        root.editingId = "";
        root.movedId = "";
        list.showTasks();
    }

    function focusRow(row: int, reason: int): void {
        if (list.count === 0)
            return;
        const wanted = Math.max(0, Math.min(row, list.count - 1));
        list.positionViewAtIndex(wanted, ListView.Contain);
        list.itemAtIndex(wanted)?.forceActiveFocus(reason);
    }

    function edit(taskId: string): void {
        const row = list.itemAtIndex(root.tasks.rowOf(taskId)) as Orvane.TaskRow;
        if (!row)
            return;
        root.editingId = taskId;
        rename.parent = row.editSlot;
        rename.begin(row.title);
    }

    /// Leaves the field; an empty title changes nothing.
    function endEditing(title: string, byKeyboard: bool): void {
        const taskId = root.editingId;
        const row = root.tasks.rowOf(taskId);
        if (byKeyboard)
            root.focusRow(row, Qt.TabFocusReason);
        root.editingId = "";
        if (title !== "")
            root.model.renameTask(taskId, title);
    }

    /// `keepKeyboard` hands it to the row that takes this one's place.
    function toggle(row: int, taskId: string, keepKeyboard: bool): void {
        root.model.toggleTask(taskId);
        if (keepKeyboard)
            root.focusRow(row, Qt.TabFocusReason);
    }

    function remove(row: int, taskId: string): void {
        root.model.deleteTask(taskId);
        root.focusRow(row, Qt.TabFocusReason);
    }

    function moveBy(taskId: string, offset: int): void {
        if (root.completed)
            return;
        root.movedId = "";
        root.model.moveTaskBy(taskId, offset);
        root.movedId = taskId;
        list.positionViewAtIndex(root.tasks.rowOf(taskId), ListView.Contain);
    }

    function openMenu(taskId: string, anchor: Item, byKeyboard: bool): void {
        root.menuId = taskId;
        menu.open(anchor, byKeyboard);
    }

    function runMenu(name: string): void {
        if (name === "rename")
            root.edit(root.menuId);
        else if (name === "focus")
            root.model.beginFocusOn(root.menuId, "countdown", root.model.settings.defaultMinutes);
        else if (name === "up" || name === "down")
            root.moveBy(root.menuId, name === "up" ? -1 : 1);
        else if (name === "delete")
            root.remove(root.tasks.rowOf(root.menuId), root.menuId);
    }

    /// What a key does to the row that has the keyboard; whether it does anything.
    function rowKey(row: int, taskId: string, item: Item, key: int, modifiers: int): bool {
        const alt = modifiers & Qt.AltModifier;
        if (key === Qt.Key_Up || key === Qt.Key_Down) {
            const step = key === Qt.Key_Up ? -1 : 1;
            if (alt)
                root.moveBy(taskId, step);
            else
                root.focusRow(row + step, Qt.TabFocusReason);
        } else if (key === Qt.Key_Home)
            root.focusRow(0, Qt.TabFocusReason);
        else if (key === Qt.Key_End)
            root.focusRow(list.count - 1, Qt.TabFocusReason);
        else if (key === Qt.Key_Space)
            root.toggle(row, taskId, true);
        else if (key === Qt.Key_Return || key === Qt.Key_Enter || key === Qt.Key_F2)
            root.edit(taskId);
        else if (key === Qt.Key_Delete)
            root.remove(row, taskId);
        else if (key === Qt.Key_Menu || (key === Qt.Key_F10 && modifiers & Qt.ShiftModifier))
            root.openMenu(taskId, item, true);
        else
            return false;
        return true;
    }

    ListView {
        id: list
        objectName: "taskRows"

        property int hoveredRow: -1

        // Rows kept for reuse would show the other model's values. (The views' compiler fails on a
        // parameter of one of our types.)
        function showTasks(): void {
            list.reuseItems = false;
            list.model = root.tasks;
            list.currentIndex = 0;
            list.reuseItems = true;
        }

        anchors.fill: parent
        focus: true
        clip: true
        Component.onCompleted: list.showTasks()
        cacheBuffer: 120
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        activeFocusOnTab: false
        Accessible.role: Accessible.List
        Accessible.name: root.completed ? qsTr("Completed") : qsTr("To do")
        T.ScrollBar.vertical: Orvane.ScrollBar {
            theme: root.theme
            near: overList.hovered
        }
        HoverHandler {
            id: overList
        }

        delegate: Orvane.TaskRow {
            id: row
            required property int index
            required property string taskId
            required property var reminderAt

            readonly property bool isCurrent: ListView.isCurrentItem

            width: ListView.view.width
            theme: root.theme
            reminderSet: row.reminderAt !== undefined && !isNaN(row.reminderAt)
            reminderAhead: row.reminderSet && root.model.isUpcoming(row.reminderAt)
            editing: root.editingId === row.taskId
            menuOpen: menu.opened && root.menuId === row.taskId
            movable: !root.completed
            lifted: drag.active && drag.taskId === row.taskId
            lineAbove: row.index > 0 && list.hoveredRow !== row.index && list.hoveredRow !== row.index - 1
            announcement: root.movedId === row.taskId ? qsTr("%1, %2 of %3").arg(row.title).arg(row.index + 1).arg(list.count) : ""
            focusPolicy: row.isCurrent || row.activeFocus ? Qt.TabFocus : Qt.NoFocus

            onActiveFocusChanged: {
                if (row.activeFocus)
                    list.currentIndex = row.index;
                if (row.activeFocus && root.movedId !== row.taskId)
                    root.movedId = "";
            }
            onActiveChanged: {
                if (row.active || list.hoveredRow === row.index)
                    list.hoveredRow = row.active ? row.index : -1;
            }
            // A row kept for reuse is not there for assistive technology either.
            ListView.onPooled: {
                row.visible = false;
                if (row.editing)
                    root.editingId = "";
            }
            ListView.onReused: {
                row.visible = true;
                row.opacity = 1;
            }

            onToggleRequested: root.toggle(row.index, row.taskId, row.visualFocus)
            onEditRequested: root.edit(row.taskId)
            onMenuRequested: (anchor, byKeyboard) => root.openMenu(row.taskId, anchor, byKeyboard)
            onDragStarted: y => drag.begin(row.index, row.taskId, row.title, row.height, y)
            onDragged: y => drag.move(row.mapToItem(drag, 0, y).y)
            onDropped: cancelled => drag.end(cancelled)

            Keys.onPressed: event => {
                if (row.editing)
                    return;
                event.accepted = root.rowKey(row.index, row.taskId, row, event.key, event.modifiers);
            }
        }

        add: Transition {
            enabled: !root.theme.reduceMotion
            Orvane.RowMotion { property: "opacity"; from: 0; to: 1 }
        }
        remove: Transition {
            enabled: !root.theme.reduceMotion
            Orvane.RowMotion { property: "opacity"; to: 0 }
        }
        displaced: Transition {
            enabled: !root.theme.reduceMotion
            Orvane.RowMotion { property: "y" }
            Orvane.RowMotion { property: "opacity"; to: 1 }
        }
        move: displaced
    }

    Orvane.RenameField {
        id: rename
        objectName: "renameField"
        anchors.fill: parent
        visible: root.editingId !== ""
        theme: root.theme
        onSubmitted: title => root.endEditing(title, true)
        onAbandoned: root.endEditing("", true)
        onDeserted: title => root.endEditing(title, false)
    }
    Orvane.TaskDrag {
        id: drag
        anchors.fill: list
        theme: root.theme
        list: list
        onLanded: (taskId, to) => root.model.moveTaskBefore(taskId, root.tasks.idAt(to))
    }
    Orvane.TaskMenu {
        id: menu
        theme: root.theme
        row: menu.opened ? root.tasks.rowOf(root.menuId) : -1
        count: list.count
        movable: !root.completed
        focusable: !root.completed && !root.model.focus.active
        onChosen: name => root.runMenu(name)
    }
}
