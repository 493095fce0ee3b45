import QtQuick
import Orvane as Orvane

/// Marks the control that has the keyboard: a line around its parent.
Rectangle {
    id: root

    required property Orvane.Theme theme
    required property bool shown
    /// The corner radius of the control.
    required property int corner
    /// Whether the line lies inside the control instead of around it.
    property bool inside: false

    anchors.fill: parent
    anchors.margins: root.inside ? 0 : -4
    radius: root.inside ? root.corner : root.corner + 4
    color: Orvane.Palette.clear
    border.width: 2
    border.color: root.theme.tones.lilac
    visible: root.shown
}
