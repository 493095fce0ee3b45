import QtQuick

/// A size and cut of text together with the height of its lines.
QtObject {
    id: root

    property string family: "Inter"
    /// The em in pixels.
    required property int size
    /// The height of a line in pixels.
    required property int line
    property int weight: Font.Normal
    /// Pixels between letters.
    property real spacing: 0
    /// The font's ascent and descent in em.
    property real ascent: 0.96875
    property real descent: 0.2412

    readonly property font font: Qt.font({
        family: root.family,
        pixelSize: root.size,
        weight: root.weight,
        letterSpacing: root.spacing
    })
    /// What stands above a line's letters so that they sit in the middle of its height.
    readonly property int lead: Math.floor((root.line - Math.round(root.ascent * root.size) - Math.round(root.descent * root.size)) / 2)
}
