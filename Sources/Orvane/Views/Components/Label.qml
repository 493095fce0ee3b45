import QtQuick
import Orvane as Orvane

/// Text in one of the styles of Type, with lines of that style's height.
Text {
    id: root

    required property Orvane.TextStyle kind

    // Part by part, so that a text can add a line or capitals of its own.
    font.family: root.kind.family
    font.pixelSize: root.kind.size
    font.weight: root.kind.weight
    font.letterSpacing: root.kind.spacing
    lineHeight: root.kind.line
    lineHeightMode: Text.FixedHeight
    // Text puts what a line has in excess below its letters; half of it belongs above them.
    topPadding: root.kind.lead
    bottomPadding: -root.kind.lead
    textFormat: Text.PlainText
    renderType: Text.QtRendering
    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
}
