import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// What all buttons have in common: Space, Return and the accessibility press click, the keyboard's
/// ring, the tooltip.
T.AbstractButton {
    id: root

    required property Orvane.Theme theme
    /// Read to the user and, for buttons without a text, shown as a tooltip.
    property string label: root.text
    property string hint: ""
    property int corner: 12
    property bool ringInside: false
    /// Draws the ring also when the keyboard is elsewhere.
    property bool ringAlways: false

    Accessible.role: Accessible.Button
    Accessible.name: root.label
    // Assistive programs are not told what is disabled, and press it all the same.
    Accessible.onPressAction: if (root.enabled) root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    Orvane.FocusRing {
        theme: root.theme
        shown: root.visualFocus || root.ringAlways
        corner: root.corner
        inside: root.ringInside
        z: 1
    }
    Orvane.Tooltip {
        theme: root.theme
        text: root.hint
        wanted: (root.hovered || root.visualFocus) && !root.down
    }
}
