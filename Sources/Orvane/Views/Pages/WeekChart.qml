pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// Active minutes day by day. One stop for the Tab key; the arrow keys go from day to day.
FocusScope {
    id: root

    required property Orvane.Theme theme
    /// Objects with `name`, `fullName`, `minutes`, `value` and `today`, oldest first.
    required property list<var> days
    /// Minutes from one line to the next; four of them are as high as the chart.
    required property double axisStep

    readonly property int steps: 4
    /// The day that the Tab key reaches: today, until the arrow keys choose another one.
    property int current: root.days.length - 1

    function choose(day: int): void {
        const wanted = Math.max(0, Math.min(day, root.days.length - 1));
        // Before it is the current one, which would give it the keyboard without the reason for the ring.
        bars.itemAt(wanted)?.forceActiveFocus(Qt.TabFocusReason);
        root.current = wanted;
    }

    Keys.onLeftPressed: root.choose(root.current - 1)
    Keys.onRightPressed: root.choose(root.current + 1)
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
            return;
        root.choose(event.key === Qt.Key_Home ? 0 : root.days.length - 1);
        event.accepted = true;
    }

    Rectangle {
        anchors.fill: parent
        radius: Orvane.Metrics.cardRadius
        color: root.theme.tones.card
        border.width: root.theme.tones.cardLine.a > 0 ? 1 : 0
        border.color: root.theme.tones.cardLine
    }
    Orvane.Label {
        x: 20
        y: 18
        kind: Orvane.Type.small
        text: qsTr("Minutes")
        color: root.theme.tones.third
    }
    Rectangle {
        anchors.right: legend.left
        anchors.rightMargin: 8
        anchors.verticalCenter: legend.verticalCenter
        width: 10
        height: 10
        radius: 3
        color: root.theme.tones.fill
    }
    Orvane.Label {
        id: legend
        anchors.right: parent.right
        anchors.rightMargin: 20
        y: 18
        kind: Orvane.Type.small
        text: qsTr("Active minutes")
        color: root.theme.tones.second
    }

    Item {
        id: plot
        readonly property int scaleHeight: root.height - 120
        readonly property real scaleLeft: Math.max(24, Math.ceil(numbers.width)) + 8

        function heightOf(minutes: real): int {
            return Math.round(minutes / (root.steps * root.axisStep) * scaleHeight);
        }

        x: 20
        y: 60
        width: root.width - 40
        height: scaleHeight

        // As wide as the axis' longest number.
        Orvane.Label {
            id: numbers
            visible: false
            kind: Orvane.Type.small
            text: root.steps * root.axisStep
        }
        Repeater {
            model: root.steps + 1
            delegate: Item {
                id: line
                required property int index

                y: plot.scaleHeight - plot.heightOf(line.index * root.axisStep)
                width: plot.width
                Rectangle {
                    x: plot.scaleLeft
                    y: -1
                    width: parent.width - x
                    height: 1
                    color: root.theme.tones.line
                }
                Orvane.Label {
                    y: -8
                    width: plot.scaleLeft - 8
                    kind: Orvane.Type.small
                    text: line.index * root.axisStep
                    color: root.theme.tones.third
                    horizontalAlignment: Text.AlignRight
                    Accessible.ignored: true
                }
            }
        }
    }
    Item {
        id: area
        readonly property real step: width / Math.max(1, root.days.length)

        x: plot.x + plot.scaleLeft
        y: 40
        width: plot.width - plot.scaleLeft
        height: plot.y + plot.height + 24 - y
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Active minutes")

        Repeater {
            id: bars
            model: root.days.length
            delegate: Orvane.ChartBar {
                id: bar
                required property int index
                readonly property var day: root.days[bar.index]

                x: Math.round(bar.index * area.step)
                width: Math.round((bar.index + 1) * area.step) - x
                height: area.height
                theme: root.theme
                name: bar.day?.name ?? ""
                fullName: bar.day?.fullName ?? ""
                value: bar.day?.value ?? ""
                today: bar.day?.today ?? false
                barHeight: bar.day?.minutes > 0 ? Math.max(2, plot.heightOf(bar.day.minutes)) : 0
                focus: bar.index === root.current
                focusPolicy: bar.index === root.current || bar.activeFocus ? Qt.TabFocus : Qt.NoFocus
            }
        }
    }
    Orvane.Label {
        x: plot.x + plot.scaleLeft + Math.round((plot.width - plot.scaleLeft - width) / 2)
        y: root.height - 32
        kind: Orvane.Type.small
        text: qsTr("Day")
        color: root.theme.tones.third
    }
}
