import QtQuick
import QtTest
import Orvane as Orvane

/// The controls for one of several choices.
ControlCase {
    id: root

    name: "Choices"

    Component {
        id: segmentsKind
        Orvane.Segmented {
            x: 40
            y: 40
            theme: root.theme
            label: "Weather"
            choices: ["Sun", "Rain", "Snow"]
            current: root.value === null ? -1 : root.value
            onChosen: index => root.answer(index)
        }
    }
    Component {
        id: pickerKind
        Orvane.Picker {
            x: 200
            y: 40
            theme: root.theme
            label: "Place"
            choices: ["North", "East", "South"]
            current: root.value === null ? -1 : root.value
            otherText: "Elsewhere"
            onChosen: index => root.answer(index)
        }
    }

    // Segments.

    function segment(index: int): Item {
        return desk.find(root.control, "segment" + index);
    }

    function test_segments_are_chosen_by_click_and_by_arrow_keys(): void {
        root.make(segmentsKind, 0);
        mouseClick(root.segment(2));
        compare(root.value, 2);
        keyClick(Qt.Key_Left);
        compare(root.value, 1);
        verify(root.segment(1).visualFocus);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Left);
        compare(root.value, 0);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Right);
        compare(root.asked, [2, 1, 0, 1, 2]);
        mouseClick(root.segment(2));
        verify(root.segment(2).checked);
        compare(root.asked.length, 5);
    }

    function test_a_refused_segment_is_not_shown_as_chosen(): void {
        root.make(segmentsKind, 0);
        root.refuses = true;
        mouseClick(root.segment(1));
        compare(root.asked, [1]);
        verify(!root.segment(1).checked);
        verify(root.segment(0).checked);
    }

    function test_segments_are_one_stop_and_named_radio_buttons(): void {
        root.make(segmentsKind, 1);
        compare(root.control.Accessible.name, "Weather");
        const wanted = ["Sun", "Rain", "Snow"];
        for (let i = 0; i < 3; ++i) {
            compare(root.segment(i).Accessible.role, Accessible.RadioButton);
            compare(root.segment(i).Accessible.name, wanted[i]);
            compare(root.segment(i).Accessible.checked, i === 1);
            compare(root.segment(i).activeFocusOnTab, i === 1);
        }
        root.segment(2).Accessible.pressAction();
        compare(root.value, 2);
    }

    function test_without_a_choice_the_first_segment_takes_the_keyboard(): void {
        root.make(segmentsKind, null);
        root.control.forceActiveFocus(Qt.TabFocusReason);
        verify(root.segment(0).activeFocus);
        keyClick(Qt.Key_Space);
        compare(root.value, 0);
    }

    // Picker.

    function list(): Item {
        return desk.find(root.popovers, "pickerList");
    }

    function test_a_picker_opens_its_list_and_takes_a_choice_by_pointer(): void {
        root.make(pickerKind, 0);
        compare(root.item("pickerText").text, "North");
        mouseClick(root.control);
        verify(root.list().opened);
        const surface = desk.find(root.list(), "popoverSurface");
        verify(surface.width >= root.control.width);
        mouseClick(surface, 40, 6 + 2 * 32 + 16);
        verify(!root.list().opened);
        compare(root.value, 2);
        compare(root.item("pickerText").text, "South");
    }

    function test_a_picker_is_worked_by_keyboard_from_the_chosen_entry_on(): void {
        root.make(pickerKind, 1);
        root.control.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(root.list().opened);
        compare(root.list().current, 1);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(root.value, 2);
        verify(root.control.activeFocus);
        verify(root.control.visualFocus);
        keyClick(Qt.Key_Down);
        verify(root.list().opened);
        keyClick(Qt.Key_Escape);
        verify(!root.list().opened);
        verify(root.control.activeFocus);
        compare(root.asked, [2]);
    }

    function test_a_picker_whose_choice_is_not_offered_shows_another_text_and_marks_nothing(): void {
        root.make(pickerKind, null);
        compare(root.item("pickerText").text, "Elsewhere");
        root.control.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        verify(root.list().entries.every(entry => !entry.checked));
        compare(root.list().current, 0);
        keyClick(Qt.Key_Return);
        compare(root.value, 0);
    }

    function test_a_long_choice_is_cut_and_shown_in_full_by_a_tooltip(): void {
        root.make(pickerKind, 1);
        const wordy = "A place whose name is a good deal longer than any picker may ever become";
        root.control.choices = ["North", wordy];
        compare(root.control.width, 320);
        verify(root.item("pickerText").truncated);
        mouseMove(root.control, 20, 16);
        tryCompare(root.popovers, "tipText", wordy);
    }

    function test_a_picker_is_a_named_combo_box(): void {
        root.make(pickerKind, 1);
        compare(root.control.Accessible.role, Accessible.ComboBox);
        compare(root.control.Accessible.name, "Place");
        compare(root.control.Accessible.description, "East");
        root.control.Accessible.pressAction();
        verify(root.list().opened);
    }
}
