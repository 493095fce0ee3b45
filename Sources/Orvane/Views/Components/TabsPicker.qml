pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// Two or more choices side by side with a line under the chosen one. One stop for the Tab key; the
/// arrow keys choose.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property string label
    /// The names of the choices.
    required property list<string> choices
    /// What stands on the tabs; an empty text leaves the symbol alone.
    property list<string> texts: root.choices
    /// The symbols before the texts; none where there is none for a tab.
    property list<string> symbols: []
    property int current: 0

    /// The user chose another one.
    signal chosen(int index)

    implicitHeight: 36
    Accessible.role: Accessible.PageTabList
    Accessible.name: root.label
    Keys.onLeftPressed: root.step(-1)
    Keys.onRightPressed: root.step(1)

    function choose(index: int): void {
        if (index !== root.current && index >= 0 && index < root.choices.length)
            root.chosen(index);
    }

    /// Chooses the neighbour, which takes the keyboard.
    function step(by: int): void {
        root.choose(root.current + by);
        const tab = tabs.itemAt(root.current) as Orvane.BaseTab;
        tab.forceActiveFocus(Qt.TabFocusReason);
        // It may have the keyboard already, for no reason that shows the ring.
        tab.focusReason = Qt.TabFocusReason;
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: root.theme.tones.line
    }
    Repeater {
        id: tabs
        model: root.choices
        delegate: Orvane.BaseTab {
            id: tab
            required property int index
            required property string modelData
            readonly property bool isCurrent: tab.index === root.current

            theme: root.theme
            text: tab.modelData
            x: Math.round(root.width * tab.index / root.choices.length)
            width: Math.round(root.width * (tab.index + 1) / root.choices.length) - tab.x
            height: root.height
            selected: tab.isCurrent
            focus: tab.isCurrent
            focusPolicy: tab.isCurrent ? Qt.TabFocus : Qt.NoFocus
            ringInside: true
            corner: 8
            onClicked: root.choose(tab.index)

            contentItem: Item {
                id: face
                readonly property color ink: tab.isCurrent || tab.hovered ? root.theme.tones.text : root.theme.tones.second
                readonly property string symbol: root.symbols[tab.index] ?? ""

                Row {
                    anchors.centerIn: parent
                    spacing: 6
                    Orvane.Symbol {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: face.symbol !== ""
                        name: face.symbol === "" ? "circle" : face.symbol
                        size: words.visible ? 16 : 18
                        color: face.ink
                    }
                    Orvane.Label {
                        id: words
                        visible: words.text !== ""
                        kind: Orvane.Type.bodyMedium
                        text: root.texts[tab.index]
                        color: face.ink
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
    Rectangle {
        y: root.height - 2
        x: Math.round(root.width * root.current / root.choices.length)
        width: Math.round(root.width / root.choices.length)
        height: 2
        radius: 1
        color: root.theme.tones.sage
        Behavior on x {
            NumberAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
    }
}
