import QtQuick
import Orvane as Orvane

/// A button that stands back: an outline without a fill.
Orvane.PillButton {
    id: root

    rest: Qt.alpha(root.theme.tones.hover, 0)
    hover: root.theme.tones.hover
    press: root.theme.tones.press
    ink: root.theme.tones.text
    outline: root.theme.tones.edge
}
