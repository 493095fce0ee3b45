import QtQuick
import QtTest
import Orvane as Orvane

/// The controls for a state and for an amount.
ControlCase {
    id: root

    name: "Controls"

    Component {
        id: switchKind
        Orvane.Switch {
            x: 40
            y: 40
            theme: root.theme
            label: "Wind"
            on: root.value === true
            onSwitched: on => root.answer(on)
        }
    }
    Component {
        id: sliderKind
        Orvane.Slider {
            x: 40
            y: 40
            theme: root.theme
            label: "Depth"
            from: 230
            to: 380
            stepSize: 10
            amount: root.value === null ? 230 : root.value
            onSlid: amount => root.answer(amount)
        }
    }
    // Switch.

    function test_a_switch_asks_for_the_other_state_by_click_and_by_key(): void {
        root.make(switchKind, false);
        mouseClick(root.control);
        compare(root.value, true);
        compare(root.item("knob").x, 18);
        keyClick(Qt.Key_Space);
        compare(root.value, false);
        compare(root.item("knob").x, 2);
        keyClick(Qt.Key_Return);
        compare(root.asked, [true, false, true]);
    }

    function test_a_refused_switch_stays_as_it_is(): void {
        root.make(switchKind, false);
        root.refuses = true;
        mouseClick(root.control);
        mouseClick(root.control);
        compare(root.asked, [true, true]);
        verify(!root.control.checked);
        compare(root.item("knob").x, 2);
        root.value = true;
        verify(root.control.checked);
    }

    function test_a_switch_is_a_named_check_box(): void {
        root.make(switchKind, true);
        compare(root.control.Accessible.role, Accessible.CheckBox);
        compare(root.control.Accessible.name, "Wind");
        verify(root.control.Accessible.checked);
        root.control.Accessible.pressAction();
        verify(!root.control.Accessible.checked);
        root.control.Accessible.toggleAction();
        compare(root.asked, [false, true]);
    }

    function test_a_disabled_switch_asks_for_nothing(): void {
        root.make(switchKind, true);
        root.control.enabled = false;
        mouseClick(root.control);
        root.control.Accessible.pressAction();
        compare(root.asked, []);
    }

    // Slider.

    function test_dragging_a_slider_asks_for_each_step_on_the_way(): void {
        root.make(sliderKind, 260);
        mousePress(root.control, 40, 10);
        for (let x = 40; x <= 120; x += 4)
            mouseMove(root.control, x, 10);
        mouseRelease(root.control, 120, 10);
        compare(root.asked, [270, 280, 290, 300, 310, 320]);
        compare(root.item("knob").x + 9, 120);
    }

    function test_a_slider_goes_to_where_it_is_pressed(): void {
        root.make(sliderKind, 230);
        mouseClick(root.control, 199, 10);
        compare(root.value, 380);
        mouseClick(root.control, 0, 10);
        compare(root.value, 230);
    }

    function test_keys_move_a_slider_by_steps_and_to_its_ends(): void {
        root.make(sliderKind, 260);
        root.control.forceActiveFocus(Qt.TabFocusReason);
        const wanted = [[Qt.Key_Right, 270], [Qt.Key_Left, 260], [Qt.Key_Up, 270], [Qt.Key_Down, 260], [Qt.Key_PageUp, 310], [Qt.Key_PageDown, 260], [Qt.Key_End, 380], [Qt.Key_Home, 230]];
        for (const [key, value] of wanted) {
            keyClick(key);
            compare(root.value, value);
        }
        root.asked = [];
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_PageDown);
        compare(root.asked, []);
    }

    function test_an_amount_between_two_steps_is_shown_and_left_on_a_step(): void {
        root.make(sliderKind, 263);
        compare(root.control.value, 263);
        compare(root.asked, []);
        root.control.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        compare(root.value, 270);
    }

    function test_a_refused_slider_shows_what_is_so(): void {
        root.make(sliderKind, 260);
        root.refuses = true;
        root.control.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        compare(root.asked, [270]);
        compare(root.control.value, 260);
        compare(root.item("knob").x + 9, 40);
    }

    function test_a_slider_is_a_named_number_that_assistive_programs_set(): void {
        root.make(sliderKind, 260);
        compare(root.control.Accessible.role, Accessible.Slider);
        compare(root.control.Accessible.name, "Depth");
        root.control.Accessible.increaseAction();
        compare(root.value, 270);
        root.control.Accessible.decreaseAction();
        compare(root.value, 260);
        root.control.value = 304;
        compare(root.value, 300);
        compare(root.control.value, 300);
    }
}
