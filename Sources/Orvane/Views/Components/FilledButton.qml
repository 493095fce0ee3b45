import Orvane as Orvane

/// The button of a view's main action.
Orvane.PillButton {
    id: root

    rest: root.theme.tones.fill
    hover: root.theme.tones.fillHover
    press: root.theme.tones.fillPress
    ink: root.theme.tones.inkOnFill
    outline: Orvane.Palette.clear
}
