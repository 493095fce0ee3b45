import QtQuick
import Orvane as Orvane

/// One group of settings: its name, and its rows beside it or, where it is narrow, below.
Item {
    id: root

    required property Orvane.Theme theme
    required property string title
    /// Whether the name stands above the rows.
    required property bool stacked
    default property alias rows: column.data

    implicitHeight: column.y + column.height + 20
    Accessible.role: Accessible.Grouping
    Accessible.name: root.title

    Rectangle {
        width: parent.width
        height: 1
        color: root.theme.tones.line
    }
    Orvane.Label {
        // On one line with the text of the first row.
        y: 30
        kind: Orvane.Type.title
        text: root.title
        color: root.theme.tones.text
        Accessible.role: Accessible.Heading
    }
    Column {
        id: column
        x: root.stacked ? 0 : 232
        y: root.stacked ? 54 : 16
        width: root.width - x
    }
}
