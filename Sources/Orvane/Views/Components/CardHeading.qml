import QtQuick
import Orvane as Orvane

/// The top line of a card: its badge, its title in capitals and a detail at the right.
Item {
    id: root

    required property Orvane.Theme theme
    required property string title
    required property string symbol
    property string detail: ""
    property color badgeColor: Orvane.Palette.sage
    property color glyphColor: Orvane.Palette.ink
    property color detailColor: root.theme.tones.third
    property bool narrow: false

    readonly property Orvane.TextStyle labelKind: root.narrow ? Orvane.Type.labelTight : Orvane.Type.label

    implicitHeight: 28

    Rectangle {
        id: badge
        anchors.verticalCenter: parent.verticalCenter
        width: 24
        height: 24
        radius: 8
        color: root.badgeColor
        Orvane.Symbol {
            anchors.centerIn: parent
            name: root.symbol
            color: root.glyphColor
        }
    }
    Orvane.Label {
        anchors.left: badge.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        kind: root.labelKind
        text: root.title
        font.capitalization: Font.AllUppercase
        color: root.theme.tones.text
        Accessible.role: Accessible.Heading
        Accessible.name: root.title
    }
    Orvane.Label {
        anchors.right: parent.right
        // Letter spacing also follows the last letter.
        anchors.rightMargin: -Math.round(root.labelKind.spacing)
        anchors.verticalCenter: parent.verticalCenter
        kind: root.labelKind
        text: root.detail
        visible: root.detail !== ""
        color: root.detailColor
    }
}
