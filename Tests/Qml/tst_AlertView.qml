import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "AlertView"
    when: windowShown
    width: 500
    height: 300
    visible: true

    property var view: null

    Component {
        id: kind
        Orvane.AlertView {
            message: "Some changes haven’t been saved."
            informative: "Keep Orvane open to retry or export a backup."
            buttons: ["Keep Open", "Quit Without Saving"]
            cancelIndex: 0
            focus: true
        }
    }
    SignalSpy {
        id: chosen
        target: root.view
        signalName: "chosen"
    }

    function init(): void {
        root.view = createTemporaryObject(kind, root);
        waitForRendering(root.view);
        chosen.clear();
    }

    function button(text: string): Item {
        return desk.find(root.view, text);
    }

    function test_the_default_stands_last_and_return_chooses_it(): void {
        verify(root.button("Keep Open").mapToItem(root.view, 0, 0).x > root.button("Quit Without Saving").mapToItem(root.view, 0, 0).x);
        keyClick(Qt.Key_Return);
        compare(chosen.count, 1);
        compare(chosen.signalArguments[0][0], 0);
    }

    function test_escape_chooses_the_cancelling_button(): void {
        root.view.cancelIndex = 1;
        keyClick(Qt.Key_Escape);
        compare(chosen.signalArguments[0][0], 1);
    }

    function test_a_click_and_the_keyboard_reach_the_other_button(): void {
        mouseClick(root.button("Quit Without Saving"));
        compare(chosen.signalArguments[0][0], 1);
        root.button("Keep Open").forceActiveFocus();
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Space);
        compare(chosen.signalArguments[1][0], 1);
    }

    function test_it_is_as_high_as_its_texts_need(): void {
        compare(root.view.implicitWidth, 432);
        const before = root.view.implicitHeight;
        root.view.informative = "Keep Orvane open to retry or export a backup. Quitting now loses changes that are only in memory.";
        tryCompare(root.view, "implicitHeight", before + 20);
    }
}
