pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// One line of the tasks card. Shows a task's values and says what the user does with it; the card
/// turns that into commands.
T.ItemDelegate {
    id: root

    required property Orvane.Theme theme
    required property string title
    required property bool complete
    /// Whether the task has a reminder, and whether it is still to come.
    required property bool reminderSet
    required property bool reminderAhead
    /// Whether the title is being edited.
    required property bool editing
    required property bool menuOpen
    required property bool movable
    /// The place where the row was taken from while it is dragged.
    required property bool lifted
    required property bool lineAbove
    /// Said in place of the title after a move by keyboard; empty otherwise.
    required property string announcement

    signal toggleRequested
    signal editRequested
    signal menuRequested(Item anchor, bool byKeyboard)
    signal dragStarted(real y)
    signal dragged(real y)
    signal dropped(bool cancelled)

    /// Where the field that edits the title stands.
    property alias editSlot: slot
    readonly property bool active: root.hovered || root.menuOpen
    readonly property bool ringed: root.visualFocus && !root.editing

    implicitHeight: Math.max(40, 20 + words.height)
    hoverEnabled: true
    // A template's own role comes before the one given here, so the template has to be of that role.
    Accessible.role: Accessible.ListItem
    Accessible.name: root.announcement === "" ? root.title : root.announcement
    Accessible.focusable: true
    Accessible.onPressAction: root.toggleRequested()

    background: Rectangle {
        radius: 10
        color: root.active ? root.theme.tones.hover : Qt.alpha(root.theme.tones.hover, 0)
        Behavior on color {
            ColorAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
        Rectangle {
            visible: root.lineAbove && !root.ringed
            x: 8
            width: parent.width - 16
            height: 1
            color: root.theme.tones.line
        }
        Orvane.FocusRing {
            theme: root.theme
            shown: root.ringed
            corner: 10
            inside: true
        }
    }

    contentItem: Item {
        opacity: root.lifted ? 0.4 : 1

        MouseArea {
            id: touch
            property real pressY: 0
            property bool dragging: false

            anchors.fill: parent
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            // A finger scrolls the list, a pointer takes the row.
            onPressed: mouse => {
                touch.preventStealing = mouse.source === Qt.MouseEventNotSynthesized;
                touch.pressY = mouse.y;
                root.forceActiveFocus(Qt.MouseFocusReason);
                if (mouse.button === Qt.RightButton)
                    root.menuRequested(ellipsis, false);
            }
            onPositionChanged: mouse => {
                if (!touch.dragging && root.movable && !root.editing && (mouse.buttons & Qt.LeftButton) && Math.abs(mouse.y - touch.pressY) >= Qt.styleHints.startDragDistance) {
                    touch.dragging = true;
                    root.dragStarted(touch.pressY);
                }
                if (touch.dragging)
                    root.dragged(mouse.y);
            }
            onReleased: touch.finish(false)
            onCanceled: touch.finish(true)
            onDoubleClicked: mouse => {
                if (mouse.button === Qt.LeftButton)
                    root.editRequested();
            }

            function finish(cancelled: bool): void {
                if (!touch.dragging)
                    return;
                touch.dragging = false;
                root.dropped(cancelled);
            }
        }

        Orvane.IconButton {
            id: check
            objectName: "checkButton"
            x: 1
            y: 6
            theme: root.theme
            focusPolicy: Qt.NoFocus
            label: root.complete ? qsTr("Reopen %1").arg(root.title) : qsTr("Complete %1").arg(root.title)
            hint: ""
            symbol: root.complete ? "checkmark.circle.fill" : "circle"
            symbolSize: 18
            restColor: root.active ? root.theme.tones.text : root.complete ? root.theme.tones.sage : root.theme.tones.control
            onClicked: root.toggleRequested()
        }
        Orvane.Label {
            id: words
            x: 34
            y: 10
            width: (bell.visible ? bell.x : ellipsis.x) - x
            visible: !root.editing
            kind: Orvane.Type.body
            text: root.title
            color: root.complete ? root.theme.tones.third : root.theme.tones.text
            font.strikeout: root.complete
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            Accessible.ignored: true
            Orvane.Tooltip {
                theme: root.theme
                text: root.title
                wanted: words.truncated && !root.menuOpen && (overWords.hovered || root.visualFocus)
            }
            HoverHandler {
                id: overWords
            }
        }
        Item {
            id: slot
            x: 29
            y: 6
            width: ellipsis.x - 4 - x
            height: 28
        }
        Item {
            id: bell
            anchors.right: ellipsis.left
            y: 6
            width: 20
            height: 28
            visible: root.reminderSet && !root.editing
            Orvane.Symbol {
                anchors.centerIn: parent
                name: root.reminderAhead ? "bell.badge" : "bell"
                size: 14
                color: root.theme.tones.paper
                Accessible.role: Accessible.Graphic
                Accessible.name: qsTr("Reminder set")
            }
        }
        Orvane.IconButton {
            id: ellipsis
            objectName: "rowMenuButton"
            anchors.right: parent.right
            anchors.rightMargin: 2
            y: 6
            theme: root.theme
            focusPolicy: Qt.NoFocus
            symbol: "ellipsis"
            label: qsTr("Actions for %1").arg(root.title)
            hint: root.menuOpen ? "" : qsTr("Task actions")
            held: root.menuOpen
            restColor: root.active ? root.theme.tones.text : root.theme.tones.third
            onClicked: root.menuRequested(ellipsis, false)
        }
    }
}
