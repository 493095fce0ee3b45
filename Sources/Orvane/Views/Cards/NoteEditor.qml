pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// A plain text of one day, which scrolls when it is longer than there is room. Undo stays within the day.
/// Tab leaves it, as any other control.
FocusScope {
    id: root

    required property Orvane.Theme theme
    required property string placeholder
    /// What the text is called to those who hear it.
    required property string label
    /// How far the text stands in from the editor's sides.
    property int inset: 8

    readonly property bool editing: edit.activeFocus

    /// The user changed the text.
    signal edited(string text)
    /// The user wants a task of this line, which comes with its ending.
    signal converted(string line)
    /// Composing is over, and this day's text may be another one meanwhile.
    signal freed

    /// Takes another day's text in.
    function show(text: string): void {
        root.behind = false;
        note.show(text);
        flick.contentY = 0;
    }

    /// Makes this day's text `text`, but not while something is being composed in it: `freed` tells when
    /// that is over. `refused` says that the user's last edit was.
    function replace(text: string, refused: bool): void {
        if (edit.inputMethodComposing)
            root.behind = true;
        else
            note.replace(text, refused);
    }

    /// Whether a text was not taken in because of composing.
    property bool behind: false

    function keepInSight(): void {
        const at = edit.cursorRectangle;
        const top = Math.floor((at.y) / note.lineHeight) * note.lineHeight;
        const bottom = top + note.lineHeight + edit.y;
        if (top < flick.contentY)
            flick.contentY = top;
        else if (bottom > flick.contentY + flick.height - flick.foot)
            flick.contentY = bottom + flick.foot - flick.height;
    }

    function turnPage(direction: int, select: bool): void {
        const to = note.pageFrom(edit.cursorPosition, direction, flick.height);
        if (select)
            edit.moveCursorSelection(to, TextEdit.SelectCharacters);
        else
            edit.cursorPosition = to;
    }

    function leave(forwards: bool): void {
        edit.nextItemInFocusChain(forwards).forceActiveFocus(forwards ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    /// What a key does here before the text gets it; whether it does anything.
    function take(key: int, modifiers: int, repeated: bool): bool {
        if (key === Qt.Key_Return && modifiers & Qt.ControlModifier) {
            if (!repeated)
                root.converted(note.line(edit.selectionStart));
        } else if ((key === Qt.Key_Tab || key === Qt.Key_Backtab) && !(modifiers & (Qt.ControlModifier | Qt.AltModifier)))
            root.leave(key === Qt.Key_Tab);
        else if (key === Qt.Key_PageUp || key === Qt.Key_PageDown)
            root.turnPage(key === Qt.Key_PageUp ? -1 : 1, (modifiers & Qt.ShiftModifier) !== 0);
        else
            return false;
        return true;
    }

    Flickable {
        id: flick
        objectName: "noteView"

        /// Room below the last line.
        readonly property int foot: 8

        anchors.fill: parent
        contentWidth: width
        contentHeight: edit.y + edit.height
        boundsBehavior: Flickable.StopAtBounds
        flickableDirection: Flickable.VerticalFlick
        clip: true
        T.ScrollBar.vertical: Orvane.ScrollBar {
            theme: root.theme
            near: overNote.hovered
        }
        HoverHandler {
            id: overNote
            cursorShape: Qt.IBeamCursor
        }

        TextEdit {
            id: edit
            objectName: "noteText"
            x: root.inset
            y: 8
            width: flick.width - 2 * root.inset
            height: Math.max(flick.height - y, note.height + flick.foot)
            focus: true
            activeFocusOnTab: true
            font: Orvane.Type.note.font
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            selectByMouse: true
            persistentSelection: true
            Accessible.role: Accessible.EditableText
            Accessible.name: root.label
            Accessible.editable: true
            Accessible.multiLine: true
            Keys.priority: Keys.BeforeItem
            // What is being composed belongs to the input method.
            Keys.onPressed: event => event.accepted = !edit.inputMethodComposing && root.take(event.key, event.modifiers, event.isAutoRepeat)
            onCursorRectangleChanged: {
                caret.place();
                root.keepInSight();
            }
            onInputMethodComposingChanged: {
                if (edit.inputMethodComposing || !root.behind)
                    return;
                root.behind = false;
                root.freed();
            }

            // The editor would leave its own where it was when lines above it are laid out.
            cursorDelegate: Item {}
        }
        Orvane.Caret {
            id: caret
            objectName: "noteCaret"
            theme: root.theme
            shown: edit.cursorVisible

            function place(): void {
                const at = edit.cursorRectangle;
                caret.x = edit.x + at.x;
                caret.y = edit.y + at.y;
                caret.height = at.height;
            }
        }
    }
    Orvane.NotePaper {
        id: paper
        x: root.inset
        width: flick.width - 2 * root.inset
        height: flick.height
        note: note
        offset: flick.contentY - edit.y
        color: root.theme.tones.text
        selectionColor: root.theme.tones.edge
        selectionStart: edit.selectionStart
        selectionEnd: edit.selectionEnd
        onMoved: distance => flick.contentY += distance
    }
    Orvane.Label {
        objectName: "notePlaceholder"
        x: root.inset
        y: 8
        width: paper.width
        visible: edit.length === 0 && edit.preeditText === ""
        kind: Orvane.Type.note
        text: root.placeholder
        color: root.theme.tones.third
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    Orvane.NoteDocument {
        id: note
        editor: edit
        lineHeight: Orvane.Type.note.line
        lead: Orvane.Type.note.lead
        onEdited: text => root.edited(text)
        onHeightChanged: caret.place()
    }
}
