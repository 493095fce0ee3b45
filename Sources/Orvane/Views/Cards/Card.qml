import QtQuick
import Orvane as Orvane

/// A card of the workspace: its surface and heading.
Rectangle {
    id: root

    required property Orvane.Theme theme
    required property string title
    required property string symbol
    property string detail: ""
    property color detailColor: root.theme.tones.third
    property color badgeColor: Orvane.Palette.sage
    property color glyphColor: Orvane.Palette.ink
    /// Whether the card stands on the Dashboard, which has more room.
    property bool large: false

    readonly property bool narrow: root.width < Orvane.Metrics.narrowCard
    /// Where an empty state begins, so that neighbouring cards share one line.
    readonly property int emptyTop: Math.max(84, Math.min(root.large ? 200 : 156, (root.height - 128) / 2))

    radius: Orvane.Metrics.cardRadius
    color: root.theme.tones.card
    border.width: root.theme.tones.cardLine.a > 0 ? 1 : 0
    border.color: root.theme.tones.cardLine
    Accessible.role: Accessible.Grouping
    Accessible.name: root.title

    Orvane.CardHeading {
        x: Orvane.Metrics.cardInset
        y: 12
        width: root.width - 2 * x
        theme: root.theme
        title: root.title
        symbol: root.symbol
        detail: root.detail
        detailColor: root.detailColor
        badgeColor: root.badgeColor
        glyphColor: root.glyphColor
        narrow: root.narrow
    }
}
