import QtQuick
import Orvane as Orvane

/// A surface over the rest, beside the item it belongs to. Lives in the window's layer: give it
/// `parent: theme.layer`. A press outside or Escape closes it, and the keyboard goes back to where it
/// was.
FocusScope {
    id: root

    required property Orvane.Theme theme
    property Item anchorItem: null
    property bool opened: false
    property int padding: 16
    /// Stands over the anchor's middle instead of at its right edge, and above it instead of below, where
    /// there is room.
    property bool centred: false
    property bool above: false
    /// Whether it was opened by the keyboard, which then shows where it is.
    property bool byKeyboard: false
    default property alias content: body.data
    property real contentWidth: body.childrenRect.width
    property real contentHeight: body.childrenRect.height

    property Item returnTo: null

    signal aboutToOpen

    anchors.fill: parent
    visible: root.opened || surface.opacity > 0
    enabled: root.opened
    z: 10

    onContentHeightChanged: {
        if (root.opened)
            root.place();
    }

    /// Opens beside `anchor`.
    function open(anchor: Item, byKeyboard: bool): void {
        root.anchorItem = anchor;
        root.byKeyboard = byKeyboard;
        root.returnTo = root.Window.activeFocusItem;
        root.aboutToOpen();
        root.place();
        root.opened = true;
        root.forceActiveFocus(byKeyboard ? Qt.TabFocusReason : Qt.PopupFocusReason);
    }

    function close(): void {
        if (!root.opened)
            return;
        // Closing takes the keyboard away from here.
        const held = root.activeFocus;
        root.opened = false;
        if (held && root.returnTo)
            root.returnTo.forceActiveFocus(root.byKeyboard ? Qt.TabFocusReason : Qt.PopupFocusReason);
        root.returnTo = null;
    }

    function place(): void {
        const margin = Orvane.Metrics.popoverMargin;
        const width = root.contentWidth + 2 * root.padding;
        const height = root.contentHeight + 2 * root.padding;
        const at = root.anchorItem.mapToItem(root, 0, 0);
        const below = at.y + root.anchorItem.height + 4;
        const above = at.y - 4 - height;
        const fitsBelow = below + height + margin <= root.height;
        const fitsAbove = above >= margin;
        const right = root.centred ? at.x + (root.anchorItem.width + width) / 2 : at.x + root.anchorItem.width;
        surface.x = Math.round(Math.max(margin, Math.min(right, root.width - margin) - width));
        surface.restY = Math.round(fitsAbove && (root.above || !fitsBelow) ? above : fitsBelow ? below : Math.max(margin, root.height - margin - height));
    }

    Keys.onEscapePressed: root.close()

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onPressed: root.close()
        onWheel: wheel => wheel.accepted = true
    }
    Rectangle {
        id: surface
        objectName: "popoverSurface"
        property real restY: 0
        property real rise: root.opened ? 0 : 4

        y: surface.restY + surface.rise
        width: root.contentWidth + 2 * root.padding
        height: root.contentHeight + 2 * root.padding
        radius: 14
        color: root.theme.tones.raise
        border.width: 1
        border.color: root.theme.tones.edge
        opacity: root.opened ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: root.theme.span(root.opened ? Orvane.Metrics.quick : 80)
                easing.type: Easing.OutQuad
            }
        }
        Behavior on rise {
            enabled: root.opened
            NumberAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }

        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.AllButtons
        }
        // The Tab key goes round within the surface.
        Item {
            id: head
            activeFocusOnTab: true
            onActiveFocusChanged: {
                if (head.activeFocus)
                    tail.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
            }
        }
        Item {
            id: body
            x: root.padding
            y: root.padding
            width: root.contentWidth
            height: root.contentHeight
        }
        Item {
            id: tail
            activeFocusOnTab: true
            onActiveFocusChanged: {
                if (tail.activeFocus)
                    head.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
            }
        }
    }
}
