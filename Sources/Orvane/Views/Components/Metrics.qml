pragma Singleton

import QtQuick

/// Lengths that several views share, in logical pixels, and times in milliseconds.
QtObject {
    readonly property int cardGap: 12
    readonly property int cardRadius: 16
    readonly property int cardInset: 16
    /// Narrower cards set their texts tighter.
    readonly property int narrowCard: 250

    readonly property int panelRadius: 24
    readonly property int stripRadius: 14
    readonly property int shoulder: 12

    /// Popovers keep this distance from the edges of what they lie on.
    readonly property int popoverMargin: 8

    readonly property int quick: 120
    readonly property int rowMove: 160
    readonly property int frame: 200
    readonly property int tooltipDelay: 600
}
