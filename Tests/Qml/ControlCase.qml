import QtQuick
import QtTest
import Orvane as Orvane

/// A control that shows one value and asks for another, with the layer and colours that it needs.
TestCase {
    id: root

    readonly property Orvane.Theme theme: shared
    readonly property Item popovers: layer

    when: windowShown
    width: 500
    height: 400
    visible: true

    /// What the control is to show, and everything that it asked for.
    property var value: null
    property bool refuses: false
    property var asked: []
    property var control: null

    function answer(wanted: var): void {
        root.asked.push(wanted);
        if (!root.refuses)
            root.value = wanted;
    }

    Orvane.PopoverLayer {
        id: layer
        anchors.fill: parent
        theme: shared
    }
    Orvane.Theme {
        id: shared
        tones: Orvane.Palette.lightDashboard
        layer: layer
        reduceMotion: true
    }

    function make(kind: var, value: var): void {
        root.value = value;
        root.refuses = false;
        root.asked = [];
        root.control = createTemporaryObject(kind, root);
        waitForRendering(root.control);
    }

    function item(name: string): Item {
        return desk.find(root.control, name);
    }
}
