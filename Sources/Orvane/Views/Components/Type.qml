pragma Singleton

import QtQuick

/// The text styles of the program.
QtObject {
    readonly property TextStyle display: TextStyle {
        family: "Inter Display"
        size: 28
        line: 36
        weight: Font.Medium
        spacing: -0.3
    }
    readonly property TextStyle headline: TextStyle {
        family: "Inter Display"
        size: 20
        line: 28
        weight: Font.Medium
        spacing: -0.1
    }
    readonly property TextStyle title: TextStyle {
        size: 15
        line: 20
        weight: Font.DemiBold
    }
    readonly property TextStyle titleMedium: TextStyle {
        size: 15
        line: 20
        weight: Font.Medium
    }
    readonly property TextStyle lead: TextStyle {
        size: 15
        line: 24
    }
    readonly property TextStyle note: TextStyle {
        size: 14
        line: 22
    }
    readonly property TextStyle body: TextStyle {
        size: 13
        line: 20
    }
    readonly property TextStyle bodyMedium: TextStyle {
        size: 13
        line: 20
        weight: Font.Medium
    }
    readonly property TextStyle bodyBold: TextStyle {
        size: 13
        line: 20
        weight: Font.DemiBold
    }
    readonly property TextStyle small: TextStyle {
        size: 12
        line: 16
    }
    readonly property TextStyle smallMedium: TextStyle {
        size: 12
        line: 16
        weight: Font.Medium
    }
    readonly property TextStyle smallBold: TextStyle {
        size: 12
        line: 16
        weight: Font.DemiBold
    }
    readonly property TextStyle label: TextStyle {
        size: 11
        line: 16
        weight: Font.DemiBold
        spacing: 0.88
    }
    /// The headings of narrow cards.
    readonly property TextStyle labelTight: TextStyle {
        size: 11
        line: 16
        weight: Font.DemiBold
        spacing: 0.4
    }
    /// Labels that stand two on one line of a card.
    readonly property TextStyle labelPaired: TextStyle {
        size: 11
        line: 16
        weight: Font.DemiBold
        spacing: 0.5
    }
    /// The caption inside a dial, and inside a small one.
    readonly property TextStyle dialCaption: TextStyle {
        size: 11
        line: 14
        weight: Font.DemiBold
        spacing: 0.88
    }
    readonly property TextStyle dialCaptionSmall: TextStyle {
        size: 10
        line: 12
        weight: Font.DemiBold
        spacing: 0.5
    }
    readonly property TextStyle badge: TextStyle {
        size: 10
        line: 16
        weight: Font.DemiBold
        spacing: 0.8
    }
    /// Numbers in steppers.
    readonly property TextStyle figure: TextStyle {
        family: "Quicksand"
        size: 15
        line: 20
        weight: Font.Bold
        ascent: 1
        descent: 0.25
    }
    /// Numbers in chips.
    readonly property TextStyle figureSmall: TextStyle {
        family: "Quicksand"
        size: 14
        line: 20
        weight: Font.Bold
        ascent: 1
        descent: 0.25
    }
    /// The letters over a month's columns.
    readonly property TextStyle weekday: TextStyle {
        size: 10
        line: 16
        weight: Font.DemiBold
    }
    /// The one number of a tile.
    readonly property TextStyle tile: TextStyle {
        family: "Quicksand"
        size: 48
        line: 56
        weight: Font.Bold
        ascent: 1
        descent: 0.25
    }
    /// The number over a chart's bar.
    readonly property TextStyle barValue: TextStyle {
        family: "Quicksand"
        size: 13
        line: 20
        weight: Font.Bold
        ascent: 1
        descent: 0.25
    }
    readonly property TextStyle stripTime: TextStyle {
        family: "JetBrains Mono"
        size: 12
        line: 16
        weight: Font.Medium
        ascent: 1.02
        descent: 0.3
    }
    readonly property TextStyle stripHint: TextStyle {
        size: 12
        line: 16
        weight: Font.Medium
        spacing: 0.3
    }
    readonly property TextStyle wordmark: TextStyle {
        family: "Quicksand"
        size: 14
        line: 16
        weight: Font.Bold
        spacing: 0.4
        ascent: 1
        descent: 0.25
    }
}
