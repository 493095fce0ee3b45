import QtQuick
import Orvane as Orvane

/// What every view of one window shares: its colours, the layer for its popovers and tooltips, and
/// whether it moves.
QtObject {
    id: root

    required property Orvane.Tones tones
    /// Covers the area within which popovers and tooltips stay.
    required property Item layer
    property bool reduceMotion: false

    /// The time an animation of `milliseconds` takes: none where motion is reduced.
    function span(milliseconds: int): int {
        return root.reduceMotion ? 0 : milliseconds;
    }
}
