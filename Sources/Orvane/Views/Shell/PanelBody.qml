import QtQuick
import Orvane as Orvane

/// The surface of the strip and of the panel: round below, running on into the display's upper edge,
/// with an inverse corner at each side.
Item {
    id: root

    required property Orvane.Theme theme
    /// The surface's own colour, that of its corners, and that of the line along its lower edge.
    required property color color
    required property color line
    required property real corner
    /// Whether there is room for the inverse corners beside the body.
    property bool shoulders: true

    // A rectangle has one radius for all corners: the upper ones lie outside the window.
    Rectangle {
        y: -root.corner
        width: root.width
        height: root.height + root.corner
        radius: root.corner
        color: root.line
    }
    Rectangle {
        y: -root.corner
        width: root.width
        height: root.height + root.corner - 1
        radius: root.corner
        color: root.color
    }
    Orvane.Symbol {
        visible: root.shoulders
        x: -12
        size: 12
        name: "Brand/shoulder"
        color: root.color
    }
    Orvane.Symbol {
        visible: root.shoulders
        x: root.width
        size: 12
        name: "Brand/shoulder"
        color: root.color
        mirror: true
    }
}
