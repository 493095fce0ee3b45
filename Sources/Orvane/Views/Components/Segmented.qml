pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// A few choices side by side, one of them chosen. One stop for the Tab key; the arrow keys choose.
FocusScope {
    id: root

    required property Orvane.Theme theme
    /// Read to the user.
    required property string label
    /// The texts of the choices.
    required property list<string> choices
    /// The index of the chosen one; -1 when it is none of them.
    required property int current

    /// The user wants the choice at `index`.
    signal chosen(int index)

    implicitWidth: row.width + 4
    implicitHeight: 32
    Accessible.role: Accessible.Grouping
    Accessible.name: root.label
    Keys.onLeftPressed: root.step(-1)
    Keys.onRightPressed: root.step(1)
    Keys.onUpPressed: root.step(-1)
    Keys.onDownPressed: root.step(1)

    function choose(index: int): void {
        if (root.enabled && index !== root.current && index >= 0 && index < root.choices.length)
            root.chosen(index);
    }

    /// Chooses the neighbour, which takes the keyboard.
    function step(by: int): void {
        root.choose(root.current + by);
        const stop = segments.itemAt(Math.max(0, root.current)) as T.RadioButton;
        stop.forceActiveFocus(Qt.TabFocusReason);
        // It may have the keyboard already, for no reason that shows the ring.
        stop.focusReason = Qt.TabFocusReason;
    }

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: Orvane.Palette.clear
        border.width: 1
        border.color: root.enabled ? root.theme.tones.edge : root.theme.tones.line
    }
    FontMetrics {
        id: metrics
        // The chosen text is the wider one.
        font: Orvane.Type.bodyMedium.font
    }
    Row {
        id: row
        x: 2
        y: 2
        Repeater {
            id: segments
            model: root.choices
            delegate: T.RadioButton {
                id: segment
                required property int index
                required property string modelData
                readonly property bool isCurrent: segment.index === root.current
                readonly property bool isStop: segment.index === Math.max(0, root.current)

                function ask(): void {
                    segment.checked = Qt.binding(() => segment.isCurrent);
                    root.choose(segment.index);
                }

                objectName: "segment" + segment.index
                text: segment.modelData
                implicitWidth: Math.ceil(metrics.advanceWidth(segment.text)) + 28
                implicitHeight: 28
                hoverEnabled: true
                autoExclusive: false
                checked: segment.isCurrent
                focus: segment.isStop
                focusPolicy: segment.isStop ? Qt.StrongFocus : Qt.ClickFocus
                onToggled: segment.ask()
                Accessible.role: Accessible.RadioButton
                Accessible.name: segment.text
                Accessible.checkable: true
                Accessible.checked: segment.isCurrent
                Accessible.onPressAction: segment.ask()
                Accessible.onToggleAction: segment.ask()
                Keys.onReturnPressed: segment.ask()
                Keys.onEnterPressed: segment.ask()

                background: Rectangle {
                    radius: 8
                    color: segment.isCurrent && root.enabled ? root.theme.tones.tint : segment.down ? root.theme.tones.press : segment.hovered && root.enabled ? root.theme.tones.hover : Qt.alpha(root.theme.tones.hover, 0)
                    Behavior on color {
                        ColorAnimation {
                            duration: root.theme.span(Orvane.Metrics.quick)
                            easing.type: Easing.OutQuad
                        }
                    }
                }
                contentItem: Item {
                    Orvane.Label {
                        anchors.centerIn: parent
                        kind: segment.isCurrent ? Orvane.Type.bodyMedium : Orvane.Type.body
                        text: segment.text
                        color: !root.enabled ? root.theme.tones.off : segment.isCurrent || segment.hovered ? root.theme.tones.text : root.theme.tones.second
                        Accessible.ignored: true
                    }
                }
                Orvane.FocusRing {
                    parent: root
                    theme: root.theme
                    shown: segment.visualFocus
                    corner: 10
                }
            }
        }
    }
}
