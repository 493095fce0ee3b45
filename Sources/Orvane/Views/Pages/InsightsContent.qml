import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// Seven days in three numbers and a chart.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property Orvane.AppModel model

    readonly property bool seen: root.visible && root.Window.visibility !== Window.Hidden && root.Window.visibility !== Window.Minimized

    focus: true

    Orvane.InsightsModel {
        id: week
        model: root.model
        active: root.seen
    }

    function scrollBy(distance: real): void {
        page.contentY = Math.max(0, Math.min(page.contentY + distance, page.contentHeight - page.height));
    }

    Keys.onUpPressed: root.scrollBy(-40)
    Keys.onDownPressed: root.scrollBy(40)
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
            return;
        root.scrollBy((event.key === Qt.Key_PageUp ? -1 : 1) * (page.height - 40));
        event.accepted = true;
    }

    Flickable {
        id: page
        objectName: "insightsScroll"
        anchors.fill: parent
        contentHeight: footnote.y + footnote.height + 24
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: interactive
        T.ScrollBar.vertical: Orvane.ScrollBar {
            theme: root.theme
            near: over.hovered
        }
        HoverHandler {
            id: over
        }

        Orvane.Label {
            x: 32
            y: 48
            width: page.width - 2 * x
            kind: Orvane.Type.display
            text: qsTr("A week of little wins.")
            color: root.theme.tones.text
            Accessible.role: Accessible.Heading
        }
        Orvane.Label {
            x: 32
            y: 88
            width: page.width - 2 * x
            kind: Orvane.Type.body
            text: qsTr("The last seven days. Only active focus time counts.")
            color: root.theme.tones.second
        }
        Item {
            id: tiles
            readonly property real step: (width + Orvane.Metrics.cardGap) / 3
            readonly property int second: Math.round(step)
            readonly property int third: Math.round(2 * step)

            x: 24
            y: 128
            width: page.width - 2 * x
            height: 136
            Orvane.MetricTile {
                objectName: "tasksCompleted"
                width: tiles.second - Orvane.Metrics.cardGap
                color: Orvane.Palette.sage
                title: qsTr("TASKS COMPLETED")
                value: week.tasksCompleted
            }
            Orvane.MetricTile {
                objectName: "focusMinutes"
                x: tiles.second
                width: tiles.third - Orvane.Metrics.cardGap - x
                color: Orvane.Palette.lilac
                title: qsTr("MINUTES OF FOCUS")
                value: week.focusMinutes
                caption: qsTr("A little more present")
            }
            Orvane.MetricTile {
                objectName: "daysWithFocus"
                x: tiles.third
                width: tiles.width - x
                color: Orvane.Palette.paper
                title: qsTr("DAYS WITH FOCUS")
                value: week.daysWithFocus
            }
        }
        Orvane.WeekChart {
            id: chart
            objectName: "weekChart"
            x: 24
            y: tiles.y + tiles.height + 12
            width: page.width - 2 * x
            // All the room above the footnote, whose last line stands 42 above the lower edge.
            height: Math.max(240, page.height - y - 16 - footnote.height - 42)
            focus: true
            theme: root.theme
            days: week.days
            axisStep: week.axisStep
        }
        Orvane.Label {
            id: footnote
            objectName: "footnote"
            x: 32
            y: chart.y + chart.height + 16
            width: page.width - 2 * x
            kind: Orvane.Type.small
            text: qsTr("Pauses and time asleep are excluded. Work across midnight is split by local day. Reopened and deleted tasks are not counted as completed.")
            color: root.theme.tones.third
            wrapMode: Text.Wrap
        }
    }
}
