import QtQuick
import Orvane as Orvane

/// The foot of the tasks card: a field for a new task's title.
FocusScope {
    id: root

    required property Orvane.Theme theme

    /// The user wants a task of this title; the field is empty again by then.
    signal submitted(string title)

    implicitHeight: 44

    function takeKeyboard(): void {
        entry.forceActiveFocus(Qt.ShortcutFocusReason);
    }

    function submit(): void {
        const title = entry.text;
        entry.clear();
        root.submitted(title);
    }

    Rectangle {
        width: parent.width
        height: 1
        color: root.theme.tones.line
    }
    Orvane.TextEntry {
        id: entry
        objectName: "addTaskEntry"
        height: parent.height
        anchors.left: parent.left
        anchors.right: key.left
        anchors.rightMargin: 4
        focus: true
        theme: root.theme
        label: qsTr("Add something to do…")
        placeholder: qsTr("Add something to do…")
        Keys.onReturnPressed: root.submit()
        Keys.onEnterPressed: root.submit()
    }
    Orvane.Symbol {
        id: key
        anchors.right: plus.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        name: "arrow.turn.down.left"
        size: 14
        color: root.theme.tones.third
    }
    Orvane.BaseButton {
        id: plus
        readonly property bool armed: entry.text !== ""

        objectName: "addTaskButton"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: 28
        height: 28
        corner: 14
        theme: root.theme
        label: qsTr("Add task")
        hint: plus.label
        onClicked: {
            root.submit();
            root.takeKeyboard();
        }

        background: Rectangle {
            radius: 14
            color: plus.armed ? (plus.down ? root.theme.tones.fillPress : plus.hovered ? root.theme.tones.fillHover : root.theme.tones.fill) : plus.down || plus.hovered ? root.theme.tones.edge : root.theme.tones.tint
        }
        contentItem: Item {
            Orvane.Symbol {
                anchors.centerIn: parent
                name: "plus"
                size: 14
                stroke: 2
                color: plus.armed ? root.theme.tones.inkOnFill : root.theme.tones.sage
            }
        }
    }
}
