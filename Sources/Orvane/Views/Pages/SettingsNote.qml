import QtQuick
import Orvane as Orvane

/// A remark between or under the rows of a section.
Orvane.Label {
    id: root

    required property Orvane.Theme theme
    /// The room above and below the text.
    property int above: 10
    property int below: 4

    width: Math.min(560, parent?.width ?? 0)
    topPadding: root.above + kind.lead
    bottomPadding: root.below - kind.lead
    kind: Orvane.Type.small
    color: root.theme.tones.second
    wrapMode: Text.Wrap
}
