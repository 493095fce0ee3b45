import QtQuick
import Orvane as Orvane

/// The menu of one row of the tasks card.
Orvane.ContextMenu {
    id: root

    required property int row
    required property int count
    required property bool movable
    /// Whether a session on the task may begin now.
    required property bool focusable

    objectName: "taskMenu"
    parent: root.theme.layer
    label: qsTr("Task actions")
    entries: [
        {
            name: "rename",
            text: qsTr("Rename"),
            symbol: "pencil"
        },
        {
            name: "focus",
            text: qsTr("Focus on this"),
            symbol: "play",
            enabled: root.focusable
        },
        {
            divider: true
        },
        {
            name: "up",
            text: qsTr("Move up"),
            symbol: "arrow.up",
            enabled: root.movable && root.row > 0
        },
        {
            name: "down",
            text: qsTr("Move down"),
            symbol: "arrow.down",
            enabled: root.movable && root.row < root.count - 1
        },
        {
            divider: true
        },
        {
            name: "delete",
            text: qsTr("Delete task"),
            symbol: "trash",
            danger: true
        }
    ]
}
