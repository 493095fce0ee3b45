import QtQuick
import Orvane as Orvane

/// A button with a text and perhaps a symbol before it. FilledButton and QuietButton give it colours.
Orvane.BaseButton {
    id: root

    enum Size { Mini, Regular, Large }

    property int size: PillButton.Regular
    property string symbol: ""
    required property color rest
    required property color hover
    required property color press
    required property color ink
    required property color outline

    /// Between the symbol and the text.
    property int gap: root.mini ? 6 : 8

    readonly property bool mini: root.size === PillButton.Mini

    corner: root.mini ? 10 : 12
    leftPadding: root.mini ? 12 : 16
    rightPadding: root.leftPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: root.mini ? 28 : root.size === PillButton.Large ? 40 : 36

    background: Rectangle {
        radius: root.corner
        color: !root.enabled ? Orvane.Palette.clear : root.down ? root.press : root.hovered ? root.hover : root.rest
        border.width: root.enabled && root.outline.a === 0 ? 0 : 1
        border.color: root.enabled ? root.outline : root.theme.tones.line
        Behavior on color {
            ColorAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
    }
    contentItem: Item {
        implicitWidth: row.width
        implicitHeight: row.height
        Row {
            id: row
            anchors.centerIn: parent
            spacing: root.gap
            Orvane.Symbol {
                visible: root.symbol !== ""
                anchors.verticalCenter: parent.verticalCenter
                name: root.symbol === "" ? "circle" : root.symbol
                stroke: 2
                color: root.enabled ? root.ink : root.theme.tones.off
            }
            Orvane.Label {
                anchors.verticalCenter: parent.verticalCenter
                kind: root.mini ? Orvane.Type.smallBold : Orvane.Type.bodyBold
                text: root.text
                color: root.enabled ? root.ink : root.theme.tones.off
                Accessible.ignored: true
            }
        }
    }
}
