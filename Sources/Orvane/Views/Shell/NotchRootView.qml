pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// The content of the panel's window: the strip while it is collapsed, the workspace while it is
/// expanded. The window keeps its size; the body moves within it from where it is drawn to
/// `state.target`, and `state.body` follows.
FocusScope {
    id: root

    required property Orvane.AppModel model
    required property Orvane.PanelState state

    /// The strip was pressed.
    signal open
    /// The pointer came over the body, or left it.
    signal entered
    signal exited

    readonly property bool moves: root.state.animated && !root.state.reduceMotion
    /// The way from `origin` to `destination` that has been gone, 0 to 1.
    property real way: 1
    property rect origin: Qt.rect(0, 0, 0, 0)
    property rect destination: Qt.rect(0, 0, 0, 0)
    readonly property rect body: {
        const to = root.destination;
        const from = root.origin;
        const at = (a, b) => Math.round(a + (b - a) * root.way);
        return Qt.rect(at(from.x, to.x), at(from.y, to.y), at(from.width, to.width), at(from.height, to.height));
    }
    /// How much of the panel the body shows, 0 for the strip and 1 for the panel.
    property real opened: 0
    /// The panel's size at rest, in which its content is laid out.
    property size panelSize: Qt.size(root.width - 2 * Orvane.Metrics.shoulder, root.height)

    function mix(a: color, b: color): color {
        const t = root.opened;
        return Qt.rgba(a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t, 1);
    }

    function settle(): void {
        const from = root.body;
        motion.stop();
        if (root.state.expanded)
            root.panelSize = Qt.size(root.state.target.width, root.state.target.height);
        if (root.moves && from.width > 0) {
            root.origin = from;
            root.way = 0;
            root.destination = root.state.target;
            motion.from = root.opened;
            motion.start();
        } else {
            root.destination = root.state.target;
            root.way = 1;
            root.opened = root.state.expanded ? 1 : 0;
            root.report();
        }
    }

    function report(): void {
        root.state.body = root.body;
    }

    focus: true
    Component.onCompleted: {
        if (root.state.expanded)
            panel.fill();
        root.settle();
    }
    onBodyChanged: root.report()
    Keys.onEscapePressed: {
        if (root.state.expanded)
            root.model.requestDismissal();
    }

    Connections {
        target: root.state
        function onGeometryChanged(): void {
            root.settle();
        }
        function onExpandedChanged(): void {
            if (root.state.expanded)
                panel.fill();
        }
    }
    Connections {
        target: root.model
        function onFocusRequestChanged(): void {
            if (!root.model.settings.visibleCards.includes("tasks"))
                (panel.item as Orvane.PanelContent)?.focusFirstControl();
        }
    }

    ParallelAnimation {
        id: motion
        property real from: 0
        NumberAnimation {
            target: root
            property: "way"
            from: 0
            to: 1
            duration: Orvane.Metrics.frame
            easing.type: Easing.InOutQuad
        }
        NumberAnimation {
            target: root
            property: "opened"
            from: motion.from
            to: root.state.expanded ? 1 : 0
            duration: Orvane.Metrics.frame
        }
    }

    Item {
        id: frame
        x: root.body.x
        y: root.body.y
        width: root.body.width
        height: root.body.height

        HoverHandler {
            onHoveredChanged: hovered ? root.entered() : root.exited()
        }
        Orvane.PanelBody {
            anchors.fill: parent
            theme: shared
            color: root.mix(Orvane.Palette.strip, shared.tones.page)
            line: root.mix(Orvane.Palette.strip, shared.tones.line)
            corner: Math.round(Orvane.Metrics.stripRadius + (Orvane.Metrics.panelRadius - Orvane.Metrics.stripRadius) * root.opened)
        }
        Item {
            anchors.fill: parent
            clip: root.opened < 1

            Orvane.StripView {
                anchors.horizontalCenter: parent.horizontalCenter
                width: root.state.expanded ? root.origin.width : root.state.target.width
                height: root.state.expanded ? root.origin.height : root.state.target.height
                visible: opacity > 0
                enabled: !root.state.expanded
                // Gone in the first 0.08 s of the opening, back in the last 0.12 s of the closing.
                opacity: Math.max(0, 1 - root.opened / (root.state.expanded ? 0.4 : 0.6))
                theme: shared
                focusTimer: root.model.focus
                notchWidth: root.state.notchWidth
                onClicked: root.open()
            }
            Loader {
                id: panel
                anchors.horizontalCenter: parent.horizontalCenter
                y: root.state.topInset
                width: root.panelSize.width
                height: root.panelSize.height - root.state.topInset
                focus: true
                visible: opacity > 0
                enabled: root.state.expanded
                opacity: Math.max(0, (root.opened - (root.state.expanded ? 0.4 : 0.6)) / (root.state.expanded ? 0.6 : 0.4))
                // Made when it is first needed, and kept.
                function fill(): void {
                    if (panel.status === Loader.Null)
                        panel.setSource("PanelContent.qml", {
                            theme: shared,
                            model: root.model
                        });
                }
            }
        }
        Orvane.PopoverLayer {
            id: layer
            objectName: "popovers"
            anchors.fill: parent
            theme: shared
        }
    }
    Orvane.Theme {
        id: shared
        tones: Orvane.Palette.panel
        layer: layer
        reduceMotion: root.state.reduceMotion
    }
}
