import QtQuick
import Orvane as Orvane

/// What a card shows while it has nothing to list.
Column {
    id: root

    required property Orvane.Theme theme
    required property string symbol
    required property string title
    required property string description
    property color symbolColor: root.theme.tones.sage

    Orvane.Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        name: root.symbol
        size: 32
        color: root.symbolColor
    }
    Item {
        width: 1
        height: 12
    }
    Orvane.Label {
        width: root.width
        kind: Orvane.Type.title
        text: root.title
        color: root.theme.tones.text
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
    Item {
        width: 1
        height: 4
        visible: root.description !== ""
    }
    Orvane.Label {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(root.width, 160)
        visible: root.description !== ""
        kind: Orvane.Type.body
        text: root.description
        color: root.theme.tones.second
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
}
