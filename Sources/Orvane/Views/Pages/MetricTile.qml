import QtQuick
import Orvane as Orvane

/// One number with its name, on a colour of its own in every appearance.
Rectangle {
    id: root

    required property string title
    required property string value
    property string caption: ""

    implicitHeight: 136
    radius: Orvane.Metrics.cardRadius
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1: %2").arg(root.title).arg(root.value)
    Accessible.description: root.caption

    Orvane.Label {
        x: 20
        y: 16
        width: parent.width - 2 * x
        kind: Orvane.Type.label
        text: root.title
        color: Orvane.Palette.ink
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    Orvane.Label {
        id: number
        objectName: "tileValue"
        x: 20
        y: 48
        width: parent.width - 2 * x
        kind: Orvane.Type.tile
        text: root.value
        color: Orvane.Palette.ink
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 20
        Accessible.ignored: true
    }
    Orvane.Label {
        x: 20
        y: 104
        width: parent.width - 2 * x
        kind: Orvane.Type.small
        text: root.caption
        color: Orvane.Palette.caption
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
