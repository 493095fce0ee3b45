import QtQuick
import QtTest
import Orvane as Orvane

/// The open panel over a planner with some tasks.
TestCase {
    id: root

    when: windowShown
    width: 674
    height: 580
    visible: true

    property var view: null

    Component {
        id: panelKind
        Orvane.NotchRootView {
            width: 674
            height: 580
        }
    }

    function start(titles: var): void {
        desk.open(titles);
        root.view = createTemporaryObject(panelKind, root, {
            model: desk.model,
            state: desk.panel
        });
        desk.showPanel(true, Qt.rect(12, 0, 650, 580), false);
        waitForRendering(root.view);
    }

    function item(name: string): Item {
        const found = desk.find(root.view, name);
        verify(found, "there is an item " + name);
        return found;
    }

    function row(index: int): Item {
        const list = root.item("taskRows");
        tryVerify(() => list.itemAtIndex(index), 5000, "there is a row " + index);
        return list.itemAtIndex(index);
    }

    function typeText(text: string): void {
        for (const letter of text)
            keyClick(letter);
    }

    function focusRow(index: int): void {
        desk.requestFocus();
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        keyClick(Qt.Key_Home);
        for (let i = 0; i < index; ++i)
            keyClick(Qt.Key_Down);
        verify(root.row(index).activeFocus);
    }

    /// Presses a row and releases it at `y` of the list.
    function drag(index: int, y: real): void {
        const list = root.item("taskRows");
        const from = root.row(index).y + 20;
        mousePress(list, 100, from);
        for (let i = 1; i <= 10; ++i)
            mouseMove(list, 100, from + (y - from) * i / 10);
        mouseRelease(list, 100, y);
    }
}
