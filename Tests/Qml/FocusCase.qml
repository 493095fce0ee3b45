import QtQuick
import QtTest
import Orvane as Orvane

/// The open panel with the focus card in view.
PanelCase {
    id: root

    readonly property string question: "What deserves your focus?"

    function card(): Item {
        return root.item("focusCard");
    }

    function dial(): Item {
        return root.item("focusDial");
    }

    function startButton(): Item {
        return root.item("startFocus");
    }

    /// Opens a planner and chooses a task for the next session.
    function startWith(titles: var, chosen: string): void {
        root.start(titles);
        root.card().selected = desk.idOf(chosen);
    }

    /// Begins a session through the card.
    function begin(): void {
        mouseClick(root.startButton());
        desk.settle();
        verify(root.card().active, "the session has begun");
    }

    function shownText(name: string): string {
        return root.item(name).text;
    }
}
