import QtQuick
import Orvane as Orvane

/// One card's row: whether the workspace shows it, and its place among the others.
Orvane.SettingsRow {
    id: root

    required property Orvane.SettingsModel settings
    /// The card's stored word.
    required property string card
    required property bool shown
    required property bool first
    required property bool last

    /// Moves the card by one place. The button at the end of the way hands the keyboard to the other one.
    function move(by: int, pressed: Item, other: Item): void {
        const reason = pressed.focusReason;
        const held = pressed.activeFocus;
        root.settings.moveCard(root.card, by);
        if (held && !pressed.enabled)
            other.forceActiveFocus(reason);
    }

    readonly property var look: ({
            tasks: {
                name: qsTr("Tasks"),
                symbol: "checklist",
                color: Orvane.Palette.sage,
                glyph: Orvane.Palette.ink
            },
            focus: {
                name: qsTr("Focus"),
                symbol: "timer",
                color: Orvane.Palette.accent,
                glyph: Orvane.Palette.sage
            },
            notes: {
                name: qsTr("Notes"),
                symbol: "square.and.pencil",
                color: root.theme.tones.paperBadge,
                glyph: Orvane.Palette.ink
            },
            agenda: {
                name: qsTr("Agenda"),
                symbol: "calendar",
                color: Orvane.Palette.lilac,
                glyph: Orvane.Palette.ink
            }
        })[root.card]

    objectName: root.card + "Row"
    label: root.look.name
    ruled: !root.first
    ink: root.shown ? root.theme.tones.text : root.theme.tones.third
    badge: Rectangle {
        width: 24
        height: 24
        radius: 8
        color: root.look.color
        opacity: root.shown ? 1 : 0.45
        Orvane.Symbol {
            anchors.centerIn: parent
            name: root.look.symbol
            color: root.look.glyph
        }
    }

    Row {
        anchors.verticalCenter: parent.verticalCenter
        Orvane.IconButton {
            id: left
            objectName: root.card + "Left"
            theme: root.theme
            symbol: "arrow.left"
            label: qsTr("Move %1 left").arg(root.card)
            enabled: !root.first
            onClicked: root.move(-1, left, right)
        }
        Orvane.IconButton {
            id: right
            objectName: root.card + "Right"
            theme: root.theme
            symbol: "arrow.right"
            label: qsTr("Move %1 right").arg(root.card)
            enabled: !root.last
            onClicked: root.move(1, right, left)
        }
    }
    Orvane.Switch {
        objectName: root.card + "Switch"
        anchors.verticalCenter: parent.verticalCenter
        theme: root.theme
        label: root.label
        on: root.shown
        onSwitched: on => root.settings.setCardShown(root.card, on)
    }
}
