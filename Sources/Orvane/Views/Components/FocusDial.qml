pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Shapes
import Orvane as Orvane

/// A ring of 60 ticks that empties towards twelve o'clock, with a time and a caption inside.
Item {
    id: root

    required property Orvane.Theme theme
    /// The length of its sides in pixels.
    required property int box
    required property string timeText
    required property string caption
    /// How much of the ring is lit, 0 to 1.
    required property real progress
    required property color lit
    property bool monospaced: false

    // The ring is drawn in units of 168 to a side.
    readonly property real unit: root.box / 168
    readonly property real filled: 60 * Math.max(0, Math.min(root.progress, 1))
    readonly property int whole: Math.floor(root.filled)
    /// How far the next tick is lit, 0 to 1.
    readonly property real rest: root.filled - Math.floor(root.filled)
    readonly property list<string> ticks: {
        const all = [];
        for (let k = 0; k < 60; ++k) {
            const x = Math.sin(k * Math.PI / 30);
            const y = -Math.cos(k * Math.PI / 30);
            const at = radius => (84 + x * radius).toFixed(3) + " " + (84 + y * radius).toFixed(3);
            all.push("M" + at(k % 5 ? 70.5 : 67.5) + "L" + at(79.5));
        }
        return all;
    }
    // Only the two paths below it change with the second.
    readonly property string unlitPath: root.ticks.join("")
    readonly property string litPath: root.ticks.slice(0, root.whole).join("")
    readonly property string partPath: root.whole < 60 ? root.ticks[root.whole] : ""

    /// The widths of the figures' cells and of a colon's, in em.
    readonly property real cell: 0.6
    readonly property real colonCell: root.monospaced ? 0.6 : 0.26
    readonly property real timeEms: {
        const colons = root.timeText.split(":").length - 1;
        return (root.timeText.length - colons) * root.cell + colons * root.colonCell;
    }
    /// The em of the time in pixels: no time is wider than 114 units.
    readonly property int timeSize: Math.max(1, Math.min(root.usualSize, Math.floor(114 * root.unit / root.timeEms)))
    readonly property int usualSize: {
        const sizes = root.monospaced ? {
            168: 34,
            192: 38,
            200: 40,
            224: 44
        } : {
            168: 40,
            192: 46,
            200: 48,
            224: 52
        };
        return sizes[root.box] ?? Math.floor(root.monospaced ? root.box / 5 : root.box * 0.24);
    }
    readonly property int timeLine: root.box === 192 ? 52 : Math.floor(Math.min(52, root.box * 0.24)) + 4

    property color shade: root.lit

    width: root.box
    height: root.box
    Accessible.role: Accessible.StaticText
    Accessible.name: root.timeText + " " + root.caption

    Behavior on shade {
        ColorAnimation {
            duration: root.theme.span(Orvane.Metrics.frame)
            easing.type: Easing.InOutQuad
        }
    }

    component Ticks: Shape {
        id: shape
        required property string path
        required property color color

        width: 168
        height: 168
        scale: root.unit
        transformOrigin: Item.TopLeft
        ShapePath {
            strokeWidth: 3
            strokeColor: shape.color
            fillColor: Orvane.Palette.clear
            capStyle: ShapePath.RoundCap
            PathSvg {
                path: shape.path
            }
        }
    }

    Ticks {
        path: root.unlitPath
        color: root.theme.tones.tick
    }
    Ticks {
        visible: root.whole > 0
        path: root.litPath
        color: root.shade
    }
    Ticks {
        visible: root.rest > 0
        path: root.partPath
        color: Qt.alpha(root.shade, root.shade.a * root.rest)
    }

    TextStyle {
        id: timeKind
        family: root.monospaced ? "JetBrains Mono" : "Quicksand Medium"
        size: root.timeSize
        line: root.timeLine
        weight: root.monospaced ? Font.Medium : Font.Normal
        ascent: root.monospaced ? 1.02 : 1
        descent: root.monospaced ? 0.3 : 0.25
    }
    Item {
        id: time
        x: Math.round((root.box - width) / 2)
        y: Math.round(root.box / 2 + 3 - (root.timeLine + 2 + words.height) / 2)
        width: root.timeEms * root.timeSize
        height: root.timeLine
        // A figure has its own cell, so that the others stay where they are when it changes.
        Repeater {
            model: root.timeText.length
            delegate: Orvane.Label {
                required property int index

                objectName: "figure" + index
                readonly property string before: root.timeText.substring(0, index)
                readonly property int colonsBefore: before.split(":").length - 1
                readonly property bool colon: text === ":"
                readonly property real start: ((index - colonsBefore) * root.cell + colonsBefore * root.colonCell) * root.timeSize
                readonly property real room: (colon ? root.colonCell : root.cell) * root.timeSize

                x: Math.round(start + (room - implicitWidth) / 2)
                y: colon && !root.monospaced ? -Math.round(0.06 * root.timeSize) : 0
                kind: timeKind
                text: root.timeText.charAt(index)
                color: root.theme.tones.text
                Accessible.ignored: true
            }
        }
    }
    Orvane.Label {
        id: words
        objectName: "dialCaption"
        anchors.horizontalCenter: parent.horizontalCenter
        y: time.y + time.height + 2
        // Within the ring, also where that is small.
        width: Math.min(112, Math.floor(root.box * 0.69))
        kind: root.box < 150 ? Orvane.Type.dialCaptionSmall : Orvane.Type.dialCaption
        text: root.caption
        color: root.theme.tones.second
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
