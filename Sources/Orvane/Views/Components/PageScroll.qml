import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// Scrolls what is higher than the page. A control that the keyboard reaches comes into view.
Flickable {
    id: root

    required property Orvane.Theme theme

    readonly property Item focused: root.Window.activeFocusItem

    contentWidth: root.width
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    T.ScrollBar.vertical: Orvane.ScrollBar {
        theme: root.theme
        near: over.hovered
    }
    HoverHandler {
        id: over
    }
    // A pressed control is in view and has to stay under the pointer.
    onFocusedChanged: if (root.focused && root.focused.focusReason !== Qt.MouseFocusReason) root.reveal(root.focused)

    /// Scrolls as little as it takes to show an item of the page, with room for its ring.
    function reveal(item: Item): void {
        let above = item;
        while (above && above !== root.contentItem)
            above = above.parent;
        if (!above)
            return;
        const top = item.mapToItem(root.contentItem, 0, 0).y - 16;
        const bottom = top + item.height + 32;
        root.scrollTo(Math.min(top, Math.max(root.contentY, bottom - root.height)));
    }

    function scrollTo(y: real): void {
        root.contentY = Math.round(Math.max(0, Math.min(y, root.contentHeight - root.height)));
    }

    /// From the page itself the keyboard goes into it, not to the window's first control.
    function leave(event: var, forward: bool): void {
        event.accepted = root.activeFocus;
        if (root.activeFocus)
            root.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    Keys.onTabPressed: event => root.leave(event, true)
    Keys.onBacktabPressed: event => root.leave(event, false)
    Keys.onPressed: event => {
        const page = root.height - 48;
        if (event.key === Qt.Key_PageDown)
            root.scrollTo(root.contentY + page);
        else if (event.key === Qt.Key_PageUp)
            root.scrollTo(root.contentY - page);
        else
            return;
        event.accepted = true;
    }
}
