import QtQuick
import Orvane as Orvane

/// Lies over a window's content. Popovers are its children; it draws the one tooltip itself.
Item {
    id: root

    required property Orvane.Theme theme

    /// The item whose tooltip is shown, if any.
    property Item tipOwner: null
    readonly property string tipText: root.tipOwner ? tip.text : ""

    /// Shows `text` below `owner`, or above it where there is no room.
    function showTip(owner: Item, text: string): void {
        tip.text = text;
        const at = owner.mapToItem(root, 0, 0);
        const margin = Orvane.Metrics.popoverMargin;
        const below = at.y + owner.height + 6;
        const middle = at.x + (owner.width - bubble.width) / 2;
        bubble.x = Math.round(Math.max(margin, Math.min(middle, root.width - margin - bubble.width)));
        bubble.y = Math.round(below + bubble.height + margin <= root.height ? below : Math.max(margin, at.y - 6 - bubble.height));
        root.tipOwner = owner;
    }

    /// Takes the tooltip of `owner` away; another item's stays.
    function hideTip(owner: Item): void {
        if (root.tipOwner === owner)
            root.tipOwner = null;
    }

    Rectangle {
        id: bubble
        z: 100
        visible: root.tipOwner !== null
        width: Math.ceil(tip.width) + 16
        height: tip.height + 8
        radius: 8
        color: root.theme.tones.press
        border.width: 1
        border.color: root.theme.tones.edge
        Orvane.Label {
            id: tip
            x: 8
            y: 4
            width: Math.min(implicitWidth, 344, root.width - 2 * Orvane.Metrics.popoverMargin - 16)
            kind: Orvane.Type.small
            color: root.theme.tones.text
            wrapMode: Text.Wrap
            maximumLineCount: 20
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
