pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// Lists the open or the completed tasks and lets the user add, complete, rename, reorder and delete
/// them.
Orvane.Card {
    id: root

    required property Orvane.AppModel model

    /// Whether the completed tasks are shown instead of the open ones.
    property bool completed: false

    readonly property Orvane.TaskListModel tasks: root.completed ? root.model.completedTasks : root.model.openTasks

    objectName: "tasksCard"
    title: qsTr("Your tasks")
    symbol: "checklist"
    detail: qsTr("%1 LEFT").arg(root.model.openTasks.count)

    /// Puts the keyboard into the add field.
    function focusAddField(): void {
        addField.takeKeyboard();
    }

    Connections {
        target: root.model
        function onFocusRequestChanged(): void {
            root.focusAddField();
        }
    }

    Orvane.TabsPicker {
        objectName: "taskStatus"
        x: Orvane.Metrics.cardInset
        y: 40
        width: root.width - 2 * x
        theme: root.theme
        label: qsTr("Task status")
        choices: [qsTr("To do"), qsTr("Completed")]
        current: root.completed ? 1 : 0
        onChosen: index => root.completed = index === 1
    }
    Orvane.TaskList {
        id: list
        objectName: "taskList"
        x: 8
        y: 80
        width: root.width - 16
        height: addField.y - y
        theme: root.theme
        model: root.model
        tasks: root.tasks
        completed: root.completed
    }
    Orvane.EmptyCard {
        objectName: "emptyTasks"
        x: Orvane.Metrics.cardInset
        y: root.emptyTop
        width: root.width - 2 * x
        visible: root.tasks.count === 0
        theme: root.theme
        symbol: root.completed ? "checkmark.seal" : "sun.max"
        symbolColor: root.completed ? root.theme.tones.sage : root.theme.tones.paper
        title: root.completed ? qsTr("Room for a little win") : qsTr("A little room to think")
        description: root.completed ? qsTr("Your finished tasks will collect here.") : qsTr("What would make today a good day?")
    }
    Orvane.AddTaskField {
        id: addField
        objectName: "addTask"
        x: Orvane.Metrics.cardInset
        y: root.height - 76
        width: root.width - 2 * x
        theme: root.theme
        onSubmitted: title => root.model.addTaskTitled(title)
    }
    Orvane.Label {
        x: Orvane.Metrics.cardInset
        y: root.height - 28
        width: root.width - 2 * x
        kind: Orvane.Type.small
        text: qsTr("Small steps count.")
        color: root.theme.tones.third
        horizontalAlignment: Text.AlignHCenter
    }
}
