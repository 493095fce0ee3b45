import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "FocusDial"
    when: windowShown
    width: 240
    height: 240
    visible: true

    property var dial: null

    Item {
        id: layer
    }
    Orvane.Theme {
        id: shared
        tones: Orvane.Palette.panel
        layer: layer
    }
    Component {
        id: kind
        Orvane.FocusDial {
            theme: shared
            caption: "REMAINING"
            lit: shared.tones.sage
        }
    }

    function show(box: int, text: string, progress: real, monospaced: bool): void {
        root.dial = createTemporaryObject(kind, root, {
            box: box,
            timeText: text,
            progress: progress,
            monospaced: monospaced
        });
    }

    function ticks(path: string): int {
        return path.split("M").length - 1;
    }

    function test_it_lights_as_many_ticks_as_there_is_progress_data(): var {
        return [
            { tag: "nothing", progress: 0, whole: 0, rest: 0 },
            { tag: "half", progress: 0.5, whole: 30, rest: 0 },
            { tag: "part of a tick", progress: 0.748, whole: 44, rest: 0.88 },
            { tag: "the last bit", progress: 0.001, whole: 0, rest: 0.06 },
            { tag: "everything", progress: 1, whole: 60, rest: 0 },
            { tag: "less than nothing", progress: -1, whole: 0, rest: 0 },
            { tag: "more than everything", progress: 2, whole: 60, rest: 0 }
        ];
    }

    function test_it_lights_as_many_ticks_as_there_is_progress(data: var): void {
        root.show(168, "25:00", data.progress, false);
        compare(root.ticks(root.dial.litPath), data.whole);
        fuzzyCompare(root.dial.rest, data.rest, 1e-9);
        compare(root.ticks(root.dial.unlitPath), 60);
    }

    function test_the_ring_empties_towards_twelve_oclock(): void {
        root.show(168, "25:00", 0.5, false);
        // From the top clockwise, the long tick first.
        verify(root.dial.litPath.startsWith("M84.000 16.500L84.000 4.500"));
        verify(root.dial.unlitPath.startsWith(root.dial.litPath));
        root.dial.progress = 0.01;
        verify(root.dial.litPath === "" && root.dial.partPath === "M84.000 16.500L84.000 4.500");
    }

    function test_a_second_changes_no_more_than_the_lit_ticks(): void {
        root.show(192, "18:42", 1122 / 1500, false);
        const unlit = root.dial.unlitPath;
        const lit = root.dial.litPath;
        const part = root.dial.partPath;
        const rest = root.dial.rest;
        root.dial.progress = 1121 / 1500;
        compare(root.dial.unlitPath, unlit);
        compare(root.dial.litPath, lit);
        compare(root.dial.partPath, part);
        verify(root.dial.rest < rest, "only the partly lit tick fades");
    }

    function test_the_time_has_the_size_of_its_dial_data(): var {
        return [
            { tag: "before a session", box: 168, text: "25:00", size: 40, line: 44, mono: 34 },
            { tag: "in a session", box: 192, text: "18:42", size: 46, line: 52, mono: 38 },
            { tag: "large, before", box: 200, text: "25:00", size: 48, line: 52, mono: 40 },
            { tag: "large, in one", box: 224, text: "18:42", size: 52, line: 56, mono: 44 },
            { tag: "least", box: 120, text: "25:00", size: 28, line: 32, mono: 24 },
            { tag: "between", box: 150, text: "25:00", size: 36, line: 40, mono: 30 },
            { tag: "an hour, before", box: 168, text: "1:00:00", size: 32, line: 44, mono: 27 },
            { tag: "an hour, in a session", box: 192, text: "1:05:48", size: 37, line: 52, mono: 31 },
            { tag: "a day", box: 192, text: "23:59:59", size: 31, line: 52, mono: 27 }
        ];
    }

    function test_the_time_has_the_size_of_its_dial(data: var): void {
        for (const monospaced of [false, true]) {
            root.show(data.box, data.text, 1, monospaced);
            compare(root.dial.timeSize, monospaced ? data.mono : data.size);
            compare(root.dial.timeLine, data.line);
            verify(root.dial.timeEms * root.dial.timeSize <= 114 * data.box / 168, "it stays within the ring");
        }
    }

    function test_figures_stay_where_they_are_while_others_change(): void {
        root.show(192, "18:42", 1, false);
        const middle = figure => figure.x + figure.width / 2;
        const figures = [0, 1, 3, 4].map(index => desk.find(root.dial, "figure" + index));
        const before = figures.map(middle);
        root.dial.timeText = "11:11";
        figures.forEach((figure, index) => verify(Math.abs(middle(figure) - before[index]) <= 1, "figure " + index));
        const colon = desk.find(root.dial, "figure2");
        compare(colon.text, ":");
        verify(colon.y < figures[0].y, "the colon is raised");
    }

    function test_the_caption_stays_within_the_ring_data(): var {
        return [
            { tag: "usual", box: 168, caption: "MAKE A LITTLE SPACE", lines: 2 },
            { tag: "in a session", box: 192, caption: "TAKE A BREATH", lines: 1 },
            { tag: "least", box: 120, caption: "MAKE A LITTLE SPACE", lines: 2 },
            { tag: "least, in a session", box: 120, caption: "TAKE A BREATH", lines: 2 }
        ];
    }

    function test_the_caption_stays_within_the_ring(data: var): void {
        root.show(data.box, "18:42", 1, false);
        root.dial.caption = data.caption;
        const words = desk.find(root.dial, "dialCaption");
        compare(words.lineCount, data.lines);
        const inner = 67.5 * data.box / 168;
        const low = words.y + words.height - data.box / 2;
        verify(low < inner, "it ends above the lowest ticks");
    }

    function test_it_is_read_as_one_text(): void {
        root.show(192, "18:42", 0.7, false);
        compare(root.dial.Accessible.name, "18:42 REMAINING");
    }
}
