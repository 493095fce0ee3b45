pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// One line of editable text with a placeholder. Draws no outline of its own.
TextInput {
    id: root

    required property Orvane.Theme theme
    required property string label
    property string placeholder: ""

    font: Orvane.Type.body.font
    color: root.theme.tones.text
    selectionColor: root.theme.tones.edge
    selectedTextColor: root.theme.tones.text
    selectByMouse: true
    clip: true
    activeFocusOnTab: true
    verticalAlignment: TextInput.AlignVCenter

    Accessible.role: Accessible.EditableText
    Accessible.name: root.label
    Accessible.editable: true

    cursorDelegate: Orvane.Caret {
        theme: root.theme
        shown: root.cursorVisible
    }

    Orvane.Label {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        visible: root.text === "" && root.preeditText === ""
        kind: Orvane.Type.body
        text: root.placeholder
        color: root.theme.tones.third
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
