import QtQuick

/// The program's mark, drawn for `size` pixels.
Image {
    id: root

    required property int size

    width: root.size
    height: root.size
    sourceSize.width: root.size
    sourceSize.height: root.size
    source: "image://symbols/Brand/" + (root.size > 20 ? "orvane" : "orvane-16")
    Accessible.ignored: true
}
