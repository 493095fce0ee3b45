pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// A menu in the window's layer. Entries are objects with `name`, `text` and, where wanted, `symbol`,
/// `enabled: false` or `danger: true`; one with `divider: true` is a line. Where the menu is a list of
/// choices each entry has `checked`, and the chosen one is marked.
Orvane.Popover {
    id: root

    required property string label
    property list<var> entries
    property int current: -1

    /// The user chose the entry of this name; the menu is closed by then.
    signal chosen(string name)

    padding: 6
    contentWidth: 196
    contentHeight: rows.height
    onAboutToOpen: root.current = root.byKeyboard ? root.first() : -1

    Accessible.role: Accessible.PopupMenu
    Accessible.name: root.label

    Keys.onUpPressed: root.step(-1)
    Keys.onDownPressed: root.step(1)
    Keys.onReturnPressed: root.choose(root.current)
    Keys.onEnterPressed: root.choose(root.current)
    Keys.onSpacePressed: root.choose(root.current)
    // The keyboard stays in the menu until it is closed.
    Keys.onTabPressed: root.step(1)
    Keys.onBacktabPressed: root.step(-1)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home)
            root.current = root.next(-1, 1);
        else if (event.key === Qt.Key_End)
            root.current = root.next(root.entries.length, -1);
        else
            return;
        root.byKeyboard = true;
        event.accepted = true;
    }

    function selectable(index: int): bool {
        const entry = root.entries[index];
        return entry !== undefined && entry.divider !== true && entry.enabled !== false;
    }

    /// Where the keyboard begins: at the checked entry, or at the top.
    function first(): int {
        const checked = root.entries.findIndex(entry => entry.checked === true);
        return checked < 0 ? root.next(-1, 1) : checked;
    }

    /// The next entry that can be chosen, going round at the ends; `from` when there is none.
    function next(from: int, step: int): int {
        const count = root.entries.length;
        for (let i = 1; i <= count; ++i) {
            const index = (from + i * step + count * 2) % count;
            if (root.selectable(index))
                return index;
        }
        return from;
    }

    /// Goes on by keyboard, which is shown from then on.
    function step(by: int): void {
        root.byKeyboard = true;
        root.current = root.next(root.current < 0 && by < 0 ? root.entries.length : root.current, by);
    }

    function choose(index: int): void {
        if (!root.selectable(index))
            return;
        const name = root.entries[index].name;
        root.close();
        root.chosen(name);
    }

    Column {
        id: rows
        width: root.contentWidth
        Repeater {
            model: root.entries
            delegate: Item {
                id: row
                required property int index
                required property var modelData
                readonly property bool divider: row.modelData.divider === true
                readonly property bool usable: root.selectable(row.index)
                readonly property bool isCurrent: root.current === row.index
                readonly property bool isChecked: row.modelData.checked === true
                readonly property string symbol: row.modelData.symbol ?? ""
                readonly property color ink: !row.usable ? root.theme.tones.off : row.modelData.danger === true ? root.theme.tones.clay : root.theme.tones.text

                width: rows.width
                height: row.divider ? 13 : 32
                Accessible.role: row.divider ? Accessible.Separator : Accessible.MenuItem
                Accessible.name: row.divider ? "" : row.modelData.text
                Accessible.focusable: row.usable
                Accessible.focused: row.isCurrent
                Accessible.checkable: row.modelData.checked !== undefined
                Accessible.checked: row.isChecked
                Accessible.onPressAction: root.choose(row.index)

                Rectangle {
                    visible: row.divider
                    x: 10
                    y: 6
                    width: parent.width - 20
                    height: 1
                    color: root.theme.tones.line
                }
                Rectangle {
                    anchors.fill: parent
                    visible: row.isCurrent && row.usable
                    radius: 9
                    color: root.theme.tones.press
                }
                Orvane.FocusRing {
                    theme: root.theme
                    shown: row.isCurrent && root.byKeyboard
                    corner: 9
                    inside: true
                }
                Orvane.Symbol {
                    visible: row.symbol !== ""
                    x: 10
                    anchors.verticalCenter: parent.verticalCenter
                    name: row.symbol === "" ? "minus" : row.symbol
                    color: !row.usable || row.modelData.danger === true ? row.ink : root.theme.tones.second
                }
                Orvane.Symbol {
                    visible: row.isChecked
                    x: parent.width - 26
                    anchors.verticalCenter: parent.verticalCenter
                    name: "checkmark"
                    color: root.theme.tones.second
                }
                Orvane.Label {
                    id: words
                    visible: !row.divider
                    x: row.symbol === "" ? 10 : 36
                    anchors.verticalCenter: parent.verticalCenter
                    width: parent.width - x - (row.modelData.checked === undefined ? 10 : 36)
                    kind: Orvane.Type.body
                    text: row.divider ? "" : row.modelData.text
                    color: row.ink
                    elide: Text.ElideRight
                    Accessible.ignored: true
                }
                Orvane.Tooltip {
                    theme: root.theme
                    text: words.text
                    wanted: words.truncated && row.isCurrent
                }
                MouseArea {
                    anchors.fill: parent
                    hoverEnabled: true
                    enabled: row.usable
                    onPositionChanged: {
                        root.byKeyboard = false;
                        root.current = row.index;
                    }
                    onExited: if (row.isCurrent && !root.byKeyboard) root.current = -1
                    onClicked: root.choose(row.index)
                }
            }
        }
    }
}
