pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// One of several choices; pressing it opens the list of all of them, which lies in the window's layer.
T.ComboBox {
    id: root

    required property Orvane.Theme theme
    /// Read to the user.
    required property string label
    /// The texts of the choices.
    required property list<string> choices
    /// The index of the chosen one; -1 when it is none of them.
    required property int current
    /// What is shown while the chosen one is none of them.
    property string otherText: ""
    /// Longer texts are cut.
    property int longest: 320

    /// The user wants the choice at `index`.
    signal chosen(int index)

    readonly property string shown: root.choices[root.current] ?? root.otherText
    readonly property bool held: touch.pressed || list.opened

    function open(byKeyboard: bool): void {
        root.forceActiveFocus(byKeyboard ? Qt.TabFocusReason : Qt.MouseFocusReason);
        list.open(root, byKeyboard);
    }

    displayText: root.shown
    implicitWidth: Math.min(root.longest, Math.ceil(words.implicitWidth) + 44)
    implicitHeight: 32
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.ComboBox
    Accessible.name: root.label
    Accessible.description: root.shown
    Accessible.onPressAction: if (root.enabled) root.open(true)
    Keys.onReturnPressed: root.open(true)
    Keys.onEnterPressed: root.open(true)
    Keys.onSpacePressed: root.open(true)
    Keys.onUpPressed: root.open(true)
    Keys.onDownPressed: root.open(true)

    background: Rectangle {
        radius: 10
        color: !root.enabled ? Orvane.Palette.clear : root.held ? root.theme.tones.press : root.hovered ? root.theme.tones.hover : Qt.alpha(root.theme.tones.hover, 0)
        border.width: 1
        border.color: root.enabled ? root.theme.tones.edge : root.theme.tones.line
        Behavior on color {
            ColorAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
    }
    contentItem: Item {
        Orvane.Label {
            id: words
            objectName: "pickerText"
            x: 12
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - 44
            kind: Orvane.Type.body
            text: root.shown
            color: root.enabled ? root.theme.tones.text : root.theme.tones.off
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Orvane.Symbol {
            x: parent.width - 24
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron.up.chevron.down"
            color: !root.enabled ? root.theme.tones.off : root.hovered || root.held ? root.theme.tones.text : root.theme.tones.third
        }
        MouseArea {
            id: touch
            anchors.fill: parent
            onClicked: root.open(false)
        }
    }
    Orvane.FocusRing {
        theme: root.theme
        shown: root.visualFocus
        corner: 10
    }
    Orvane.Tooltip {
        theme: root.theme
        text: root.shown
        wanted: words.truncated && !root.held && (root.hovered || root.visualFocus)
    }
    FontMetrics {
        id: metrics
        font: Orvane.Type.body.font
    }
    Orvane.ContextMenu {
        id: list
        objectName: "pickerList"
        parent: root.theme.layer
        theme: root.theme
        label: root.label
        // At least as wide as the picker, and as its longest choice beside the mark.
        contentWidth: {
            let widest = Math.max(196, root.width - 12);
            for (const choice of root.choices)
                widest = Math.max(widest, Math.ceil(metrics.advanceWidth(choice)) + 46);
            return Math.min(widest, list.width - 2 * Orvane.Metrics.popoverMargin - 12, root.longest + 46);
        }
        entries: root.choices.map((text, index) => ({
                    name: String(index),
                    text: text,
                    checked: index === root.current
                }))
        onChosen: name => root.chosen(Number(name))
    }
}
