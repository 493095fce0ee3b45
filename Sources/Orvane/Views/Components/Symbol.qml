import QtQuick

/// One of the line symbols in a colour. The stroke is given in units of the symbols' 24-pixel grid.
Image {
    id: root

    required property string name
    required property color color
    property int size: 16
    property real stroke: root.size >= 32 ? 1.5 : 1.75

    width: root.size
    height: root.size
    sourceSize.width: root.size
    sourceSize.height: root.size
    source: "image://symbols/" + root.name + "/" + root.color.toString().substring(1) + "/" + root.stroke
    asynchronous: false
}
