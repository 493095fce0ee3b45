import QtQuick
import Orvane as Orvane

/// Moving a row of the list with the pointer: the row under the pointer, the line where it will land,
/// and scrolling near the list's ends.
Item {
    id: root

    required property Orvane.Theme theme
    required property ListView list

    /// The row being moved, -1 when none is.
    property int from: -1
    property string taskId: ""
    property string title: ""
    /// Before which row it will land; the number of rows stands for the end.
    property int to: -1
    readonly property bool active: root.from >= 0

    property real grip: 0
    property real pointerY: 0

    /// Lets the row go before the task in row `to`.
    signal landed(string taskId, int to)

    /// `y` is the pointer's place within the row.
    function begin(row: int, id: string, text: string, rowHeight: real, y: real): void {
        root.from = row;
        root.taskId = id;
        root.title = text;
        root.grip = y;
        ghost.height = rowHeight;
        root.to = row;
    }

    /// `y` is the pointer's place in this item.
    function move(y: real): void {
        root.pointerY = y;
        root.aim();
    }

    function end(cancelled: bool): void {
        if (!root.active)
            return;
        const moved = root.taskId;
        const target = root.to;
        const from = root.from;
        root.from = -1;
        root.to = -1;
        if (!cancelled && target !== from && target !== from + 1)
            root.landed(moved, target);
    }

    function aim(): void {
        const y = Math.max(0, Math.min(root.height - 1, root.pointerY)) + root.list.contentY;
        const row = root.list.indexAt(root.list.width / 2, y);
        if (row < 0) {
            root.to = y < root.list.originY + 1 ? 0 : root.list.count;
        } else {
            const item = root.list.itemAtIndex(row);
            root.to = y < item.y + item.height / 2 ? row : row + 1;
        }
        const at = root.list.itemAtIndex(Math.min(root.to, root.list.count - 1));
        if (at)
            mark.y = Math.round((root.to < root.list.count ? at.y : at.y + at.height) - root.list.contentY) - 1;
    }

    /// Where the row under the pointer is drawn: at the pointer, but clear of the line, so that nothing
    /// crosses its text.
    function ghostY(): real {
        const gap = 4;
        const under = mark.y + mark.height + gap;
        const over = mark.y - gap - ghost.height;
        const follow = Math.max(0, Math.min(root.pointerY - root.grip, root.height - ghost.height));
        if (follow >= under || follow <= over)
            return Math.round(follow);
        const roomUnder = under + ghost.height <= root.height + ghost.height / 2;
        return root.pointerY >= mark.y && roomUnder || over < 0 ? under : over;
    }

    visible: root.active

    Rectangle {
        id: mark
        objectName: "dragLine"
        z: 1
        width: parent.width
        height: 2
        radius: 1
        color: root.theme.tones.lilac
    }
    Rectangle {
        id: ghost
        objectName: "dragRow"
        x: 6
        y: root.ghostY()
        width: parent.width
        radius: 10
        color: root.theme.tones.raise
        border.width: 1
        border.color: root.theme.tones.edge
        Orvane.Symbol {
            x: 6
            y: 11
            name: "circle"
            size: 18
            color: root.theme.tones.control
        }
        Orvane.Label {
            x: 34
            y: 10
            width: parent.width - 64
            kind: Orvane.Type.body
            text: root.title
            color: root.theme.tones.text
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        Orvane.Symbol {
            x: parent.width - 24
            y: 12
            name: "ellipsis"
            color: root.theme.tones.third
        }
    }
    FrameAnimation {
        readonly property real overTop: Math.max(0, 24 - root.pointerY)
        readonly property real overBottom: Math.max(0, root.pointerY - (root.height - 24))

        running: root.active && (overTop > 0 || overBottom > 0)
        onTriggered: {
            const list = root.list;
            const lowest = list.originY + Math.max(0, list.contentHeight - list.height);
            const step = (Math.min(overBottom, 48) - Math.min(overTop, 48)) * 10 * frameTime;
            const y = Math.max(list.originY, Math.min(lowest, list.contentY + step));
            if (y === list.contentY)
                return;
            list.contentY = y;
            root.aim();
        }
    }
}
