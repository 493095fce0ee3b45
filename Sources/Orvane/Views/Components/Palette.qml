pragma Singleton

import QtQuick

/// Every colour of the program. Views take theirs from the Tones they are given.
QtObject {
    id: root

    readonly property color ink: "#1F2621"
    readonly property color sage: "#CCDBC2"
    readonly property color lilac: "#E3DEF5"
    readonly property color paper: "#F7EDCC"
    readonly property color accent: "#405E45"
    /// Small text on sage, lilac and paper.
    readonly property color caption: "#4A534C"

    /// The collapsed strip, which continues the display's black edge.
    readonly property color strip: "#000000"
    readonly property color clear: "#00000000"

    /// The panel, in every appearance.
    readonly property Tones panel: Tones {
        page: "#0D110E"
        side: "#0D110E"
        card: "#171D18"
        raise: root.ink
        hover: root.ink
        press: "#2A322B"
        tint: "#2A332B"
        line: "#29312A"
        edge: "#39433B"
        control: "#7F8B80"
        text: "#EEF1EA"
        second: "#AEB8AC"
        third: "#8A958B"
        off: "#5A645B"
        sage: root.sage
        lilac: root.lilac
        paper: root.paper
        clay: "#F0B49F"
        ready: "#6E7B6A"
        fill: root.sage
        fillHover: "#D9E5D1"
        fillPress: "#B3C2A9"
        inkOnFill: root.ink
        tick: "#313A33"
        paperBadge: root.paper
        switchOff: "#39433B"
        switchHover: "#465148"
        knob: "#AEB8AC"
        barPast: "#8B9A85"
        cardLine: root.clear
    }

    readonly property Tones darkDashboard: Tones {
        page: "#111512"
        side: "#0D110E"
        card: "#181E19"
        raise: root.ink
        hover: root.ink
        press: "#2A322B"
        tint: "#2A332B"
        line: "#29312A"
        edge: "#39433B"
        control: "#7F8B80"
        text: "#EEF1EA"
        second: "#AEB8AC"
        third: "#8A958B"
        off: "#5A645B"
        sage: root.sage
        lilac: root.lilac
        paper: root.paper
        clay: "#F0B49F"
        ready: "#6E7B6A"
        fill: root.sage
        fillHover: "#D9E5D1"
        fillPress: "#B3C2A9"
        inkOnFill: root.ink
        tick: "#343D36"
        paperBadge: root.paper
        switchOff: "#39433B"
        switchHover: "#465148"
        knob: "#AEB8AC"
        barPast: "#8B9A85"
        cardLine: root.clear
    }

    readonly property Tones lightDashboard: Tones {
        page: "#F8F6F0"
        side: "#F1EEE5"
        card: "#FFFEFB"
        raise: "#FFFEFB"
        hover: "#F4F2EA"
        press: "#ECE9DF"
        tint: "#E2E9D8"
        line: "#E8E4D9"
        edge: "#D3CFC2"
        control: "#7C867E"
        text: root.ink
        second: "#4F5952"
        third: "#5F6961"
        off: "#A3AAA2"
        sage: root.accent
        lilac: "#5A4F86"
        paper: "#7A5A12"
        clay: "#9A3F28"
        ready: "#7F9378"
        fill: root.accent
        fillHover: "#4A6B50"
        fillPress: "#35503A"
        inkOnFill: "#FFFFFF"
        tick: "#E0DDD0"
        paperBadge: "#F3E5B4"
        switchOff: "#7C867E"
        switchHover: "#6E7870"
        knob: "#FFFFFF"
        barPast: "#7F9378"
        cardLine: "#E8E4D9"
    }
}
