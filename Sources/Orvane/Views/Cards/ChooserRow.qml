import QtQuick
import Orvane as Orvane

/// One task in the list to choose from.
Item {
    id: root

    required property Orvane.Theme theme
    required property string title
    required property bool chosen
    /// Whether Return would choose it, and whether the keyboard brought it there.
    required property bool current
    required property bool ringed

    signal clicked
    /// The pointer moved over the row, or left it.
    signal pointed
    signal deserted

    implicitHeight: 32
    Accessible.role: Accessible.ListItem
    Accessible.name: root.title
    Accessible.focusable: true
    Accessible.focused: root.current
    Accessible.selectable: true
    Accessible.selected: root.chosen
    Accessible.onPressAction: root.clicked()

    Rectangle {
        anchors.fill: parent
        visible: root.current
        radius: 9
        color: root.theme.tones.press
    }
    Orvane.FocusRing {
        theme: root.theme
        shown: root.ringed
        corner: 9
        inside: true
    }
    Orvane.Label {
        id: words
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - x - (root.chosen ? 36 : 14)
        kind: Orvane.Type.body
        text: root.title
        color: root.theme.tones.text
        elide: Text.ElideRight
        maximumLineCount: 1
        Accessible.ignored: true
    }
    Orvane.Symbol {
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        visible: root.chosen
        name: "checkmark"
        color: root.theme.tones.sage
    }
    MouseArea {
        id: touch
        anchors.fill: parent
        hoverEnabled: true
        onPositionChanged: root.pointed()
        onExited: root.deserted()
        onClicked: root.clicked()
    }
    Orvane.Tooltip {
        theme: root.theme
        text: root.title
        wanted: words.truncated && (touch.containsMouse || root.ringed)
    }
}
