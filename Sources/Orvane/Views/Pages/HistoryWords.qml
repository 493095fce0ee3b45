import QtQuick
import Orvane as Orvane

/// A line of words among the rows of a day: a heading with a line below it, or why nothing follows.
Item {
    id: root

    required property Orvane.Theme theme
    required property string text
    required property bool heading
    property bool gapAbove: false

    implicitHeight: (root.gapAbove ? 24 : 0) + (root.heading ? 33 : 44)

    Orvane.Label {
        x: 8
        y: root.height - (root.heading ? 25 : 32)
        width: parent.width - 2 * x
        kind: root.heading ? Orvane.Type.label : Orvane.Type.body
        text: root.text
        color: root.heading ? root.theme.tones.third : root.theme.tones.second
        elide: Text.ElideRight
        Accessible.role: root.heading ? Accessible.Heading : Accessible.StaticText
    }
    Rectangle {
        x: 8
        y: root.height - 1
        width: parent.width - 2 * x
        height: 1
        visible: root.heading
        color: root.theme.tones.line
    }
}
