import QtQuick
import Orvane as Orvane

/// A button that looks like a link in a text.
Orvane.BaseButton {
    id: root

    property Orvane.TextStyle kind: Orvane.Type.smallMedium

    corner: 8
    padding: 0
    implicitWidth: Math.ceil(words.implicitWidth)
    implicitHeight: 28

    contentItem: Item {
        Orvane.Label {
            id: words
            anchors.verticalCenter: parent.verticalCenter
            kind: root.kind
            text: root.text
            color: root.hovered ? root.theme.tones.text : root.theme.tones.sage
            Accessible.ignored: true
        }
        Rectangle {
            y: words.y + words.height
            width: parent.width
            height: 1
            color: words.color
        }
    }
}
