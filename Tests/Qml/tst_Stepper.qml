import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "Stepper"
    when: windowShown
    width: 300
    height: 200
    visible: true

    property int value: 25
    property bool refuses: false
    property var asked: []

    Orvane.PopoverLayer {
        id: layer
        anchors.fill: parent
        theme: shared
    }
    Orvane.Theme {
        id: shared
        tones: Orvane.Palette.panel
        layer: layer
    }
    Component {
        id: stepperKind
        Orvane.Stepper {
            x: 40
            y: 40
            theme: shared
            label: "Minutes"
            from: 1
            to: 180
            value: root.value
            onStepped: value => {
                root.asked.push(value);
                if (!root.refuses)
                    root.value = value;
            }
        }
    }

    property var stepper: null

    function init(): void {
        root.value = 25;
        root.refuses = false;
        root.asked = [];
        root.stepper = createTemporaryObject(stepperKind, root);
        waitForRendering(root.stepper);
    }

    function shown(): string {
        return desk.find(root.stepper, "stepperText").text;
    }

    function test_the_buttons_lower_and_raise_the_value(): void {
        mouseClick(root.stepper, 16, 16);
        compare(root.value, 24);
        mouseClick(root.stepper, root.stepper.width - 16, 16);
        mouseClick(root.stepper, root.stepper.width - 16, 16);
        compare(root.value, 26);
        compare(root.shown(), "26");
    }

    function test_a_held_button_goes_on(): void {
        mousePress(root.stepper, root.stepper.width - 16, 16);
        tryVerify(() => root.value > 27);
        mouseRelease(root.stepper, root.stepper.width - 16, 16);
    }

    function test_keys_go_by_one_by_ten_and_to_the_ends(): void {
        root.stepper.forceActiveFocus(Qt.TabFocusReason);
        const wanted = [[Qt.Key_Up, 26], [Qt.Key_Down, 25], [Qt.Key_PageUp, 35], [Qt.Key_PageDown, 25], [Qt.Key_Home, 1], [Qt.Key_PageUp, 11], [Qt.Key_End, 180], [Qt.Key_PageDown, 170]];
        for (const [key, value] of wanted) {
            keyClick(key);
            compare(root.value, value);
        }
    }

    function test_it_is_one_stop_of_the_tab_key(): void {
        const second = createTemporaryObject(stepperKind, root);
        root.stepper.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(second.activeFocus);
    }

    function test_it_stops_at_its_bounds(): void {
        root.stepper.forceActiveFocus(Qt.TabFocusReason);
        root.value = 5;
        keyClick(Qt.Key_PageDown);
        compare(root.value, 1);
        keyClick(Qt.Key_Down);
        mouseClick(root.stepper, 16, 16);
        compare(root.value, 1);
        root.value = 179;
        keyClick(Qt.Key_PageUp);
        compare(root.value, 180);
        keyClick(Qt.Key_Up);
        mouseClick(root.stepper, root.stepper.width - 16, 16);
        compare(root.value, 180);
        compare(root.asked, [1, 180]);
    }

    function test_a_refused_value_is_not_shown(): void {
        root.refuses = true;
        mouseClick(root.stepper, 16, 16);
        mouseClick(root.stepper, 16, 16);
        compare(root.asked, [24, 24]);
        compare(root.shown(), "25");
        root.value = 40;
        compare(root.shown(), "40");
    }

    function test_another_text_may_be_shown(): void {
        root.stepper.text = "25 minutes";
        compare(root.shown(), "25 minutes");
        verify(root.stepper.implicitWidth > 108, "it makes room for the text");
    }

    function test_assistive_programs_find_a_named_number(): void {
        const control = root.stepper.children[0];
        compare(control.Accessible.role, Accessible.SpinBox);
        compare(control.Accessible.name, "Minutes");
        control.Accessible.increaseAction();
        compare(root.value, 26);
        control.Accessible.decreaseAction();
        compare(root.value, 25);
    }

    function test_what_assistive_programs_set_is_asked(): void {
        root.stepper.children[0].value = 60;
        compare(root.value, 60);
        root.value = 61;
        compare(root.stepper.children[0].value, 61);
    }
}
