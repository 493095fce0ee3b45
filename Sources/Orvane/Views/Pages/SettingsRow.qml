import QtQuick
import Orvane as Orvane

/// One setting: its name at the left, what changes it at the right.
Item {
    id: root

    required property Orvane.Theme theme
    required property string label
    /// A small line under the name; none when empty.
    property string note: ""
    /// Whether another row stands above.
    property bool ruled: true
    property color ink: root.theme.tones.text
    /// What stands before the name.
    property alias badge: before.data
    default property alias controls: after.data

    width: parent?.width ?? 0
    implicitHeight: Math.max(48, words.height + 16, after.height + 16)

    Rectangle {
        visible: root.ruled
        width: parent.width
        height: 1
        color: root.theme.tones.line
    }
    Row {
        id: before
        anchors.verticalCenter: parent.verticalCenter
    }
    Column {
        id: words
        x: before.width > 0 ? before.width + 12 : 0
        anchors.verticalCenter: parent.verticalCenter
        width: after.x - 12 - x
        spacing: 2
        Orvane.Label {
            width: parent.width
            kind: Orvane.Type.bodyMedium
            text: root.label
            color: root.ink
            wrapMode: Text.Wrap
        }
        Orvane.Label {
            objectName: "rowNote"
            width: parent.width
            visible: root.note !== ""
            kind: Orvane.Type.small
            text: root.note
            color: root.theme.tones.paper
            wrapMode: Text.Wrap
        }
    }
    Row {
        id: after
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12
    }
}
